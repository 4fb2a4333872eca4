#include "ui/HyperLinkTextField.h"

#include "fakes/ControlTest.h"
#include "ui/TextUtilities.h"

#include <QLineEdit>
#include <QTest>

namespace {
class HyperLinkTextFieldTest : public ControlTest {
protected:
    HyperLinkTextFieldTest()
    {
        m_field.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        m_field.setText(richTextFromString(QStringLiteral("Error \n"))
            + hyperlinkFromString(
                QStringLiteral("E07: motor \n"), QUrl(QStringLiteral("https://zelvo.example/7")))
            + hyperlinkFromString(
                QStringLiteral("E12: cable \n"), QUrl(QStringLiteral("https://zelvo.example/12"))));
        m_field.setOpener([this](const QUrl& url) { m_opened.push_back(url.path()); });
        m_field.resize(300, 120);
        m_before.move(0, 130);
        show(m_window);
    }

    /// The middle of a line of the text.
    [[nodiscard]] QPoint inLine(int line) const
    {
        const int height = m_field.heightForWidth(300) / 4;
        return {40, height * line + height / 2};
    }

    QWidget m_window;
    QLineEdit m_before {&m_window};
    HyperLinkTextField m_field {&m_window};
    QStringList m_opened;
};

TEST_F(HyperLinkTextFieldTest, theMouseOpensTheLinkUnderItAndNothingElse)
{
    for (const QPoint point : {inLine(0), QPoint(290, inLine(1).y()), inLine(2), inLine(1)}) {
        QTest::mouseMove(&m_field, point);
        const auto opened = m_opened.size();
        QTest::mouseClick(&m_field, Qt::LeftButton, Qt::NoModifier, point);
        EXPECT_EQ(m_field.cursor().shape() == Qt::PointingHandCursor, m_opened.size() > opened);
    }
    EXPECT_EQ(m_opened, QStringList({QStringLiteral("/12"), QStringLiteral("/7")}));
    m_field.setOpener({});
    QTest::mouseClick(&m_field, Qt::LeftButton, Qt::NoModifier, inLine(1));
}

TEST_F(HyperLinkTextFieldTest, theKeyboardReachesEachLinkAndPassesByATextWithoutLinks)
{
    m_before.setFocus();
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(&m_field, Qt::Key_Return);
    }
    QTest::keyClick(&m_field, Qt::Key_Tab);
    EXPECT_TRUE(m_before.hasFocus());
    EXPECT_EQ(m_opened, QStringList({QStringLiteral("/7"), QStringLiteral("/12")}));
    m_field.setText(QStringLiteral("E07: motor"));
    QTest::keyClick(&m_before, Qt::Key_Tab);
    EXPECT_FALSE(m_field.hasFocus());
}
}
