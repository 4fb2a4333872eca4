#include "platform/qt/QtDialogs.h"

#include "fakes/Files.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {
/// What the user does with the modal dialog that comes.
void user(const std::function<void(QWidget&)>& act)
{
    QTimer::singleShot(1, qApp, [act] {
        if (QWidget* const modal = QApplication::activeModalWidget())
            act(*modal);
        else
            user(act);
    });
}

TEST(QtDialogsTest, anErrorIsShownOnceUntilItIsOverAndOneAfterTheOther)
{
    QtDialogs dialogs;
    const Error cause {"DOMAIN", 101, "Expected a folder, found a file (/tmp/<b>a&b</b>).", "Why."};
    const Error consequence {"DOMAIN", 101, cause.localizedDescription, "Another reason."};
    const Error again {"DOMAIN", 102, cause.localizedDescription, cause.failureReason};
    QString log;
    for (int round = 1; round <= 2; ++round) {
        for (const Error& error : {cause, consequence, again}) {
            log += logOf([&] { EXPECT_FALSE(dialogs.presentError(error)); });
            dialogs.forgetErrors(); // Too early: the user has not read it yet.
        }
        for (const Error& error : {cause, consequence}) {
            ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget(); }));
            auto& panel = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
            EXPECT_EQ(panel.text(), error.localizedDescription);
            EXPECT_EQ(panel.informativeText(), error.failureReason);
            EXPECT_EQ(panel.textFormat(), Qt::PlainText);
            EXPECT_EQ(panel.icon(), QMessageBox::Critical);
            panel.button(QMessageBox::Ok)->click();
        }
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::topLevelWidgets().empty(); }));
        dialogs.forgetErrors();
    }
    EXPECT_EQ(log.count("DOMAIN 101: Expected a folder, found a file (/tmp/<b>a&b</b>). Why.\n"), 2);
}

TEST(QtDialogsTest, anAlertAnswersTheButton)
{
    const std::pair<std::function<void(QMessageBox&)>, int> kWays[] = {
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, 0},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2},
        {[](QMessageBox& box) { box.done(0); }, 2},
        {[](QMessageBox& box) { box.buttons().at(1)->click(); }, 1}};
    for (const auto& [way, answer] : kWays) {
        user([&way = way](QWidget& modal) {
            auto& box = dynamic_cast<QMessageBox&>(modal);
            EXPECT_EQ(box.text() + box.informativeText(), "<b>More");
            EXPECT_EQ(box.buttons().at(1)->text(), "Save && wait");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), QMessageBox::Warning);
            way(box);
        });
        EXPECT_EQ(QtDialogs().runAlert("<b>", "More", {"Quit & lose", "Save & wait", "Cancel"}),
            Dialogs::kFirstButton + answer);
    }
}

TEST(QtDialogsTest, aDialogMayGoWithItsWindowButNotWithAPanelThatWasDismissed)
{
    QtDialogs dialogs;
    auto* const window = new QWidget;
    window->show();
    QApplication::setActiveWindow(window);
    user([&](QWidget&) { delete window; });
    EXPECT_EQ(dialogs.runAlert("Message", {}, {"Yes", "No"}), Dialogs::kFirstButton + 1);

    dialogs.presentError({"generic", 7, "Something is full.", "Why."});
    auto* const panel = QApplication::activeModalWidget();
    panel->hide(); // It is deleted in a moment, and the focus may still be its own.
    QApplication::setActiveWindow(panel);
    user([&](QWidget& modal) {
        delete panel;
        QTest::keyClick(&modal, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.runAlert("Quit?", {}, {"Quit", "Cancel"}), Dialogs::kFirstButton);
}
}
