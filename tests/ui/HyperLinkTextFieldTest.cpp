#include "ui/HyperLinkTextField.h"

#include "fakes/ControlTest.h"
#include "ui/TextUtilities.h"

#include <QLineEdit>
#include <QTest>

namespace {
using HyperLinkTextFieldTest = ControlTest;

TEST_F(HyperLinkTextFieldTest, mouseAndKeyboardOpenTheLinkThatIsMeant)
{
    QWidget window;
    QLineEdit before(&window);
    HyperLinkTextField field(&window);
    QString opened;
    field.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    field.setText(richTextFromString(QStringLiteral("Error \n"))
        + hyperlinkFromString(
            QStringLiteral("E07: motor \n"), QUrl(QStringLiteral("https://zelvo.example/7")))
        + hyperlinkFromString(
            QStringLiteral("E12: cable \n"), QUrl(QStringLiteral("https://zelvo.example/12"))));
    field.setOpener([&](const QUrl& url) { opened += url.path(); });
    field.resize(300, 120);
    before.move(0, 130);
    show(window);
    const int line = field.heightForWidth(300) / 4;
    for (const QPoint point :
        {QPoint(40, line / 2), {290, line * 3 / 2}, {40, line * 5 / 2}, {40, line * 3 / 2}}) {
        QTest::mouseMove(&field, point);
        QTest::mouseClick(&field, Qt::LeftButton, Qt::NoModifier, point);
    }
    EXPECT_EQ(opened, QStringLiteral("/12/7"));

    before.setFocus();
    for (int i = 0; i < 2; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_TRUE(before.hasFocus());
    EXPECT_EQ(opened, QStringLiteral("/12/7/7/12"));
    field.setText(QStringLiteral("E07: motor"));
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_FALSE(field.hasFocus()) << "a text without links";
}
}
