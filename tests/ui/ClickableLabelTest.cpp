#include "ui/ClickableLabel.h"

#include "fakes/ControlTest.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"

#include <QTest>

namespace {
class ClickableLabelTest : public ControlTest, public ClickableLabelDelegate {
protected:
    ClickableLabelTest()
    {
        applyWindowPalette(m_label);
        m_label.setText(QStringLiteral("Calories"));
        m_label.setDelegateClick(this);
        m_label.resize(160, 40);
    }
    void clickableLabelClicked(ClickableLabel&) override { ++m_clicks; }

    ClickableLabel m_label;
    int m_clicks = 0;
};

TEST_F(ClickableLabelTest, theStateDecidesFontAndColourAndTheSizeAllowsForBoth)
{
    const QSize sizes[] = {m_label.sizeHint(), m_label.minimumSizeHint()};
    for (const bool active : {true, false}) {
        enter(m_label);
        EXPECT_TRUE(m_label.font().underline());
        m_label.toggleActive();
        EXPECT_EQ(m_label.font(), active ? FontAndTextHandler::Bold22() : FontAndTextHandler::Roman22());
        const QColor color = active ? zelvoHoverColor() : zelvoTextColor();
        const QRect text = boxOf(grab(m_label), [&](const QColor& pixel) { return pixel == color; });
        EXPECT_NEAR(text.center().x(), 80, 2);
        EXPECT_GT(text.width(), 70);
        EXPECT_EQ(m_label.sizeHint(), sizes[0]);
        enter(m_label);
        leave(m_label);
        EXPECT_FALSE(m_label.font().underline());
    }
    m_label.toggleActive();
    EXPECT_EQ(sizes[0],
        (QSize {m_label.fontMetrics().horizontalAdvance(m_label.text()) + 12,
            m_label.fontMetrics().height() + 8}));
    EXPECT_LT(sizes[1].width(), sizes[0].width() * 2 / 3);
    m_label.setText(QStringLiteral("Kalorien"));
    EXPECT_EQ(m_label.originalAttribuedString(), QStringLiteral("Calories"));
}

TEST_F(ClickableLabelTest, clicksAndKeysAreReportedAndChangeNothing)
{
    QTest::mouseClick(&m_label, Qt::LeftButton);
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A})
        QTest::keyClick(&m_label, key);
    QTest::mouseClick(&m_label, Qt::RightButton);
    QTest::mousePress(&m_label, Qt::LeftButton);
    QTest::mouseRelease(&m_label, Qt::LeftButton, Qt::NoModifier, QPoint(300, 10));
    EXPECT_EQ(m_clicks, 4);
    EXPECT_FALSE(m_label.active());
}
}
