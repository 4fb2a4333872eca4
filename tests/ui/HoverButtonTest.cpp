#include "ui/HoverButton.h"

#include "fakes/ControlTest.h"
#include "ui/Palette.h"

namespace {
class HoverButtonTest : public ControlTest {
protected:
    HoverButtonTest()
    {
        m_button.setText(QStringLiteral("Stand"));
        m_button.setImage(m_plain);
        m_button.setAlternateImage(m_alternate);
        m_button.setBackgroundColor(Qt::white);
        m_button.setAlternateBackgroundColor(QColor(200, 230, 240));
        m_button.resize(140, 40);
    }

    const Picture m_plain {QStringLiteral("NotificationButtonStandMemory")};
    const Picture m_alternate {QStringLiteral("NotificationButtonStandMemory_hoover")};
    HoverButton m_button;
};
}

TEST_F(HoverButtonTest, theTitleHasTheTextColourFromTheBeginning)
{
    EXPECT_EQ(m_button.textColor(), zelvoTextColor());
}

TEST_F(HoverButtonTest, theMouseBringsTheAlternateLookAndTakesItAway)
{
    const QImage plain = grab(m_button);
    enter(m_button);
    EXPECT_EQ(m_button.image(), m_alternate);
    EXPECT_EQ(m_button.textColor(), zelvoHoverColor());
    EXPECT_EQ(colorAt(grab(m_button), {6, 20}), QColor(200, 230, 240));
    leave(m_button);
    EXPECT_EQ(m_button.image(), m_plain);
    EXPECT_EQ(m_button.textColor(), zelvoTextColor());
    EXPECT_EQ(grab(m_button), plain);
}

TEST_F(HoverButtonTest, withoutAlternatesOnlyTheTitleChanges)
{
    m_button.setAlternateImage({});
    m_button.setAlternateBackgroundColor({});
    enter(m_button);
    EXPECT_EQ(m_button.image(), m_plain);
    EXPECT_EQ(colorAt(grab(m_button), {6, 20}), QColor(Qt::white));
    EXPECT_EQ(m_button.textColor(), zelvoHoverColor());
}

TEST_F(HoverButtonTest, enteringADisabledButtonChangesNothing)
{
    m_button.setEnabled(false);
    const QImage disabled = grab(m_button);
    enter(m_button);
    EXPECT_EQ(m_button.image(), m_plain);
    EXPECT_EQ(m_button.textColor(), zelvoTextColor());
    EXPECT_EQ(grab(m_button), disabled);
    leave(m_button);
    EXPECT_EQ(grab(m_button), disabled);
}

TEST_F(HoverButtonTest, aButtonDisabledUnderTheMouseLosesTheHoverLook)
{
    enter(m_button);
    m_button.setEnabled(false);
    EXPECT_EQ(m_button.image(), m_plain);
    EXPECT_EQ(m_button.textColor(), zelvoTextColor());
}

TEST_F(HoverButtonTest, aScreenMayEndTheHoverLookBeforeTheMouseLeaves)
{
    const QImage plain = grab(m_button);
    enter(m_button);
    m_button.mouseExited();
    EXPECT_EQ(grab(m_button), plain);
    leave(m_button);
    EXPECT_EQ(grab(m_button), plain);
}

TEST_F(HoverButtonTest, anExitWithoutEntryKeepsPictureAndTakesTheColourOfTheLastEntry)
{
    m_button.mouseExited();
    EXPECT_EQ(m_button.textColor(), zelvoTextColor());
    EXPECT_EQ(m_button.image(), m_plain);
    enter(m_button);
    leave(m_button);
    m_button.setTextColor(Qt::red);
    m_button.mouseExited();
    EXPECT_EQ(m_button.textColor(), zelvoTextColor());
}

TEST_F(HoverButtonTest, whatIsSetUnderTheMouseIsWhatItsLeavingRestores)
{
    const Picture sit(QStringLiteral("NotificationButtonSitMemory"));
    const Picture sitAlternate(QStringLiteral("NotificationButtonSitMemory_hoover"));
    enter(m_button);
    m_button.setImage(sit);
    m_button.setAlternateImage(sitAlternate);
    m_button.setTextColor(Qt::red);
    EXPECT_EQ(m_button.image(), sitAlternate);
    leave(m_button);
    EXPECT_EQ(m_button.image(), sit);
    EXPECT_EQ(m_button.textColor(), QColor(Qt::red));
    m_button.setImage(m_plain);
    EXPECT_EQ(m_button.image(), m_plain);
}

TEST_F(HoverButtonTest, titleAndPictureStayReadableOnABackgroundOfTheHoverColour)
{
    const auto lightPixels = [this] {
        const QImage image = grab(m_button, 2).copy(16, 8, 248, 64);
        int light = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                light += image.pixelColor(x, y).lightness() > 200;
        }
        return light;
    };
    m_button.setAlternateBackgroundColor(zelvoHoverColor());
    enter(m_button);
    const int both = lightPixels();
    m_button.setImagePosition(Button::ImagePosition::Only);
    const int pictureAlone = lightPixels();
    EXPECT_GT(pictureAlone, 100);
    EXPECT_GT(both, pictureAlone + 100);
}
