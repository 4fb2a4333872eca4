#include "ui/HoverButton.h"

#include "fakes/ControlTest.h"

namespace {
class HoverButtonTest : public ControlTest {
protected:
    HoverButtonTest()
    {
        m_button.setText(QStringLiteral("Stand"));
        m_button.setImageNamed(QStringLiteral("NotificationButtonStandMemory"));
        setBackground(m_button, QColor(250, 240, 230));
        m_button.setAlternateBackgroundColor(QColor(200, 230, 240));
        m_button.resize(140, 40);
    }

    /// Picture, title's colour and background as they are seen.
    QString seen()
    {
        return (QStringList {m_button.image().name(), m_button.textColor().name(),
                    grab(m_button).pixelColor(6, 20).name()})
            .join(QLatin1Char(' '));
    }

    HoverButton m_button;
    const QString m_plain = QStringLiteral("NotificationButtonStandMemory #616161 #faf0e6");
    const QString m_hovered = QStringLiteral("NotificationButtonStandMemory_hoover #00707a #c8e6f0");
};

TEST_F(HoverButtonTest, theMouseBringsTheOtherLookAndEachEndTakesItAway)
{
    const std::function<void()> kEnds[] = {[&] { leave(m_button); }, [&] { m_button.mouseExited(); },
        [&] { m_button.setEnabled(false), m_button.setEnabled(true); }};
    for (const auto& end : kEnds) {
        EXPECT_EQ(seen(), m_plain);
        enter(m_button);
        enter(m_button);
        EXPECT_EQ(seen(), m_hovered);
        end();
        EXPECT_EQ(seen(), m_plain);
        leave(m_button);
    }
    m_button.setEnabled(false);
    const QImage disabled = grab(m_button);
    enter(m_button);
    EXPECT_EQ(grab(m_button), disabled);
}

TEST_F(HoverButtonTest, whatIsSetUnderTheMouseIsWhatItsLeavingRestores)
{
    enter(m_button);
    m_button.setImageNamed(QStringLiteral("NotificationButtonSitMemory"));
    EXPECT_EQ(m_button.image().name(), QStringLiteral("NotificationButtonSitMemory_hoover"));
    m_button.setTextColor(Qt::red);
    leave(m_button);
    const QString set = QStringLiteral("NotificationButtonSitMemory #ff0000 #faf0e6");
    EXPECT_EQ(seen(), set);
    // An exit without an entry gives the title the colour that the last entry found.
    m_button.setTextColor(Qt::blue);
    m_button.mouseExited();
    EXPECT_EQ(seen(), set);
    m_button.setAlternateImage({});
    m_button.setAlternateBackgroundColor({});
    enter(m_button);
    EXPECT_EQ(seen(), QStringLiteral("NotificationButtonSitMemory #00707a #faf0e6"));
}
}
