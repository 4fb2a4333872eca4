#include "ui/HoverButton.h"

#include "fakes/ControlTest.h"
#include "ui/Palette.h"

namespace {
class HoverButtonTest : public ControlTest {
protected:
    HoverButtonTest()
    {
        m_button.setText(QStringLiteral("Stand"));
        m_button.setImageNamed(QStringLiteral("NotificationButtonStandMemory"));
        m_button.setBackgroundColor(QColor(250, 240, 230));
        m_button.setAlternateBackgroundColor(QColor(200, 230, 240));
        m_button.resize(140, 40);
    }

    /// Picture, title's colour and background as they are seen.
    void expect(const char* picture, const QColor& title, const QColor& background)
    {
        EXPECT_EQ(m_button.image().name(), QString::fromLatin1(picture));
        EXPECT_EQ(m_button.textColor(), title);
        EXPECT_EQ(colorAt(grab(m_button), {6, 20}), background);
    }
    void expectPlain() { expect("NotificationButtonStandMemory", zelvoTextColor(), QColor(250, 240, 230)); }

    HoverButton m_button;
};

TEST_F(HoverButtonTest, theMouseBringsTheOtherLookAndEachEndTakesItAway)
{
    expectPlain();
    const std::function<void()> kEnds[] = {[&] { leave(m_button); }, [&] { m_button.mouseExited(); },
        [&] { m_button.setEnabled(false), m_button.setEnabled(true); }};
    for (const auto& end : kEnds) {
        enter(m_button);
        expect("NotificationButtonStandMemory_hoover", zelvoHoverColor(), QColor(200, 230, 240));
        end();
        expectPlain();
        leave(m_button);
        expectPlain();
    }
    m_button.setEnabled(false);
    const QImage disabled = grab(m_button);
    enter(m_button);
    EXPECT_EQ(grab(m_button), disabled);
}

TEST_F(HoverButtonTest, withoutAlternatesOnlyTheTitleChanges)
{
    m_button.setAlternateImage({});
    m_button.setAlternateBackgroundColor({});
    enter(m_button);
    expect("NotificationButtonStandMemory", zelvoHoverColor(), QColor(250, 240, 230));
}

TEST_F(HoverButtonTest, whatIsSetUnderTheMouseIsWhatItsLeavingRestores)
{
    enter(m_button);
    m_button.setImageNamed(QStringLiteral("NotificationButtonSitMemory"));
    m_button.setTextColor(Qt::red);
    EXPECT_EQ(m_button.image().name(), QStringLiteral("NotificationButtonSitMemory_hoover"));
    leave(m_button);
    expect("NotificationButtonSitMemory", Qt::red, QColor(250, 240, 230));
    // An exit without an entry gives the title the colour that the last entry found.
    m_button.setTextColor(Qt::blue);
    m_button.mouseExited();
    expect("NotificationButtonSitMemory", Qt::red, QColor(250, 240, 230));
}

TEST_F(HoverButtonTest, titleAndPictureStayReadableOnABackgroundOfTheHoverColour)
{
    m_button.setAlternateBackgroundColor(zelvoHoverColor());
    enter(m_button);
    const auto light = [&] {
        return boxOf(grab(m_button), [](const QColor& pixel) { return pixel == QColor(Qt::white); }).width();
    };
    const int both = light();
    m_button.setImagePosition(Button::ImagePosition::Only);
    EXPECT_GT(light(), 10);
    EXPECT_GT(both, light() + 20);
}
}
