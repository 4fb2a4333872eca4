#include "ui/ClickableLabel.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QTest>

namespace {
struct Recorder final : ClickableLabelDelegate {
    std::vector<ClickableLabel*> clicked;
    void clickableLabelClicked(ClickableLabel& label) override { clicked.push_back(&label); }
};

class ClickableLabelTest : public ControlTest {
protected:
    ClickableLabelTest()
    {
        m_label.setText(QStringLiteral("Calories"));
        m_label.setDelegateClick(&m_recorder);
        m_label.resize(160, 40);
    }

    Recorder m_recorder;
    ClickableLabel m_label;
};
}

TEST_F(ClickableLabelTest, theStateDecidesFontAndColour)
{
    m_label.setActive(true);
    EXPECT_TRUE(m_label.active());
    EXPECT_EQ(m_label.font(), FontAndTextHandler::Bold22());
    EXPECT_EQ(m_label.palette().color(QPalette::WindowText), zelvoHoverColor());
    m_label.toggleActive();
    EXPECT_FALSE(m_label.active());
    EXPECT_EQ(m_label.font(), FontAndTextHandler::Roman22());
    EXPECT_EQ(m_label.palette().color(QPalette::WindowText), zelvoTextColor());
    EXPECT_EQ(m_label.alignment(), Qt::AlignCenter);
    EXPECT_EQ(m_label.text(), QStringLiteral("Calories"));
}

TEST_F(ClickableLabelTest, theFirstTextIsKept)
{
    m_label.setText(QStringLiteral("Kalorien"));
    EXPECT_EQ(m_label.originalAttribuedString(), QStringLiteral("Calories"));
}

TEST_F(ClickableLabelTest, theMouseUnderlinesAndAChangeOfStateTakesTheLineAway)
{
    m_label.setActive(false);
    enter(m_label);
    EXPECT_TRUE(m_label.font().underline());
    leave(m_label);
    EXPECT_FALSE(m_label.font().underline());
    enter(m_label);
    m_label.setActive(true);
    EXPECT_FALSE(m_label.font().underline());
}

TEST_F(ClickableLabelTest, clicksAndKeysAreReportedAndChangeNothing)
{
    QTest::mouseClick(&m_label, Qt::LeftButton);
    EXPECT_EQ(m_recorder.clicked.size(), 1U);
    QTest::keyClick(&m_label, Qt::Key_Space);
    QTest::keyClick(&m_label, Qt::Key_Return);
    EXPECT_EQ(m_recorder.clicked.size(), 3U);
    EXPECT_EQ(m_recorder.clicked.front(), &m_label);
    EXPECT_FALSE(m_label.active());
}

TEST_F(ClickableLabelTest, otherButtonsAndReleasesElsewhereAreNoClicks)
{
    QTest::mouseClick(&m_label, Qt::RightButton);
    QTest::mousePress(&m_label, Qt::LeftButton);
    QTest::mouseRelease(&m_label, Qt::LeftButton, Qt::NoModifier, QPoint(300, 10));
    EXPECT_TRUE(m_recorder.clicked.empty());
    m_label.setDelegateClick(nullptr);
    QTest::mouseClick(&m_label, Qt::LeftButton);
}

TEST_F(ClickableLabelTest, aChangeOfStateDoesNotChangeTheSizeWanted)
{
    m_label.setText(QStringLiteral("Minutes of standing in each hour"));
    m_label.setActive(false);
    const QSize inactive = m_label.sizeHint();
    m_label.setActive(true);
    EXPECT_EQ(m_label.sizeHint(), inactive);
    EXPECT_GE(inactive.width(), QFontMetrics(FontAndTextHandler::Bold22()).horizontalAdvance(m_label.text()));
}
