#include "platform/qt/QtDialogs.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {
class QtDialogsTest : public testing::Test {
protected:
    QtDialogsTest()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(1);
    }
    ~QtDialogsTest() override { EXPECT_TRUE(m_user.empty()) << "a dialog that was expected did not appear"; }

    /// For a dialog that the program does not wait for itself.
    void waitForTheUser()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_user.empty() && !QApplication::activeModalWidget(); }));
    }
    /// What the user does with the next modal dialog.
    void user(std::function<void(QWidget&)> action) { m_user.push_back(std::move(action)); }
    /// The user reads a panel of an error and closes it.
    void userReads(const Error& error)
    {
        user([error](QWidget& modal) {
            EXPECT_EQ(box(modal).text(), error.localizedDescription);
            EXPECT_EQ(box(modal).textFormat(), Qt::PlainText);
            EXPECT_EQ(box(modal).informativeText(), error.failureReason);
            modal.close();
        });
    }
    static QMessageBox& box(QWidget& modal) { return dynamic_cast<QMessageBox&>(modal); }

    QtDialogs m_dialogs;

private:
    void look()
    {
        QWidget* const modal = QApplication::activeModalWidget();
        if (!modal || m_user.empty())
            return;
        const auto action = std::move(m_user.front());
        m_user.erase(m_user.begin());
        // Not from the timer itself, which would stand still while the action opens another dialog.
        QMetaObject::invokeMethod(
            modal, [action, modal] { action(*modal); }, Qt::QueuedConnection);
    }

    std::vector<std::function<void(QWidget&)>> m_user;
    QTimer m_timer;
};

TEST_F(QtDialogsTest, anErrorIsShownOnceUntilItIsOverAndOneAfterTheOther)
{
    const Error cause {"DOMAIN", 101, "Expected a folder, found a file (/tmp/<b>a&b</b>).", "Why."};
    Error consequence = cause;
    consequence.failureReason = "Another reason.";
    for (int round = 1; round <= 2; ++round) {
        userReads(cause);
        userReads(consequence);
        Error again = cause;
        again.code = 102;
        for (const Error& error : {cause, consequence, again}) {
            EXPECT_FALSE(m_dialogs.presentError(error));
            m_dialogs.forgetErrors(); // Too early: the user has not read it yet.
        }
        EXPECT_EQ(QApplication::topLevelWidgets().size(), 1);
        waitForTheUser();
        EXPECT_FALSE(m_dialogs.presentError(again));
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        m_dialogs.forgetErrors();
    }
}

TEST_F(QtDialogsTest, anAlertAnswersTheButton)
{
    const std::pair<std::function<void(QMessageBox&)>, int> kWays[] = {
        {[](QMessageBox& box) { box.buttons().at(0)->click(); }, 0},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, 0},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2},
        {[](QMessageBox& box) { box.done(0); }, 2},
        {[](QMessageBox& box) {
             EXPECT_EQ(
                 box.text() + box.informativeText() + box.buttons().at(1)->text(), "<b>MoreSave && wait");
             EXPECT_EQ(box.textFormat(), Qt::PlainText);
             box.buttons().at(1)->click();
         },
            1},
    };
    for (const auto& [way, answer] : kWays) {
        user([&](QWidget& modal) { way(box(modal)); });
        EXPECT_EQ(m_dialogs.runAlert("<b>", "More", {"Quit & lose", "Save & wait", "Cancel"}),
            Dialogs::kFirstButton + answer);
    }
}

TEST_F(QtDialogsTest, aDialogMayGoWithItsWindowButNotWithAPanelThatWasDismissed)
{
    auto* const window = new QWidget;
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    user([&](QWidget&) { delete window; });
    EXPECT_EQ(m_dialogs.runAlert("Message", {}, {"Yes", "No"}), Dialogs::kFirstButton + 1);

    m_dialogs.presentError({"generic", 7, "Something is full.", "Why."});
    auto* const panel = QApplication::activeModalWidget();
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel));
    panel->hide(); // It is deleted in a moment, and the focus may still be its own.
    QApplication::setActiveWindow(panel);
    user([&](QWidget& modal) {
        delete panel;
        box(modal).buttons().at(0)->click();
    });
    EXPECT_EQ(m_dialogs.runAlert("Quit?", {}, {"Quit", "Cancel"}), Dialogs::kFirstButton);
}

TEST_F(QtDialogsTest, aFileGoesIntoTheDocumentsFolderAndIsReplacedOnlyWithConsent)
{
    const QTemporaryDir home;
    const QByteArray previousHome = qgetenv("HOME");
    qputenv("HOME", home.path().toUtf8());
    qunsetenv("XDG_CONFIG_HOME");
    const QString documents = home.filePath("Documents/");
    QDir(home.path()).mkdir("Documents");
    for (const char* const name : {"Export.csv", "a.pdf.csv"}) {
        QFile file(documents + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    constexpr auto kNobodyAsks = QMessageBox::NoButton;
    const struct {
        QString typed; ///< empty: Return alone, for what is proposed
        QMessageBox::StandardButton answer;
        QString saved; ///< null: nothing, once the user has given up
    } kCases[] = {{"", kNobodyAsks, "Höhe 15-03-2024.csv"}, {"plain", kNobodyAsks, "plain.csv"},
        {"same.CSV", kNobodyAsks, "same.CSV"}, {"other.pdf", kNobodyAsks, "other.pdf.csv"},
        {"Export.csv", QMessageBox::No, {}}, {"Export.csv", QMessageBox::Yes, "Export.csv"},
        {"a.pdf", QMessageBox::No, {}}, {"a.pdf", QMessageBox::Yes, "a.pdf.csv"}};
    for (const auto& [typed, answer, saved] : kCases) {
        user([typed = typed](QWidget& modal) {
            EXPECT_EQ(dynamic_cast<QFileDialog&>(modal).nameFilters(), QStringList {"*.csv"});
            auto* const edit = modal.findChild<QLineEdit*>("fileNameEdit");
            if (!typed.isEmpty())
                edit->selectAll();
            QTest::keyClicks(edit, typed);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        if (answer != kNobodyAsks)
            user([answer = answer](QWidget& modal) { box(modal).button(answer)->click(); });
        if (saved.isNull())
            user([](QWidget& modal) { dynamic_cast<QFileDialog&>(modal).reject(); });
        EXPECT_EQ(m_dialogs.runSavePanel("Höhe 15/03/2024.csv"),
            saved.isNull() ? std::nullopt : std::optional(documents + saved))
            << qPrintable(typed);
    }
    qputenv("HOME", previousHome);
}
}
