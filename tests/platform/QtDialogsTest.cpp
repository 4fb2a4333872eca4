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
    void SetUp() override
    {
        qputenv("HOME", m_home.path().toUtf8());
        qunsetenv("XDG_CONFIG_HOME");
        QDir(m_home.path()).mkdir("Documents");
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start(1);
    }
    void TearDown() override
    {
        m_timer.stop();
        EXPECT_TRUE(m_user.empty()) << "a dialog that was expected did not appear";
        qputenv("HOME", m_previousHome);
    }

    /// For a dialog that the program does not wait for itself.
    void waitForTheUser()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_user.empty() && !QApplication::activeModalWidget(); }));
    }
    /// What the user does with the next modal dialog.
    void user(std::function<void(QWidget&)> action) { m_user.push_back(std::move(action)); }

    static QMessageBox& box(QWidget& modal) { return dynamic_cast<QMessageBox&>(modal); }
    /// The user types a name, Return alone for that which is proposed, and answers the question that follows.
    void userSavesAs(const QString& name, std::optional<QMessageBox::StandardButton> answer = {})
    {
        user([name](QWidget& modal) {
            EXPECT_EQ(dynamic_cast<QFileDialog&>(modal).nameFilters(), QStringList {"*.csv"});
            auto* const edit = modal.findChild<QLineEdit*>("fileNameEdit");
            ASSERT_TRUE(edit);
            if (!name.isEmpty())
                edit->selectAll();
            QTest::keyClicks(edit, name);
            QTest::keyClick(edit, Qt::Key_Return);
        });
        if (answer)
            user([answer](QWidget& modal) { box(modal).button(*answer)->click(); });
    }

    [[nodiscard]] QString documents() const { return m_home.filePath("Documents"); }

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

    QTemporaryDir m_home;
    QByteArray m_previousHome = qgetenv("HOME");
    std::vector<std::function<void(QWidget&)>> m_user;
    QTimer m_timer;
};

TEST_F(QtDialogsTest, anErrorIsShownOnceUntilItIsOver)
{
    const Error error {
        "YOUR_ERROR_DOMAIN", 101, "Expected a folder, found a file (/tmp/<b>a&b</b>).", "Why."};
    // The same again opens nothing, whatever its code; another one does, and the same once it was over.
    Error other = error;
    other.failureReason = "Another reason.";
    for (const Error& next : {error, other, error}) {
        user([&](QWidget& modal) {
            EXPECT_EQ(box(modal).text(), next.localizedDescription);
            EXPECT_EQ(box(modal).textFormat(), Qt::PlainText);
            EXPECT_EQ(box(modal).informativeText(), next.failureReason);
            QTest::keyClick(&modal, Qt::Key_Return);
        });
        EXPECT_FALSE(m_dialogs.presentError(next));
        m_dialogs.forgetErrors(); // Too early: the user has not read it yet.
        Error again = next;
        again.code = 102;
        EXPECT_FALSE(m_dialogs.presentError(again));
        waitForTheUser();
        EXPECT_FALSE(m_dialogs.presentError(again));
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        m_dialogs.forgetErrors();
    }
}

TEST_F(QtDialogsTest, errorsThatComeTogetherAreShownOneAfterTheOther)
{
    for (const QString text : {"the cause", "its consequence"}) {
        EXPECT_FALSE(m_dialogs.presentError({"domain", 1, text, {}}));
        user([text](QWidget& modal) {
            EXPECT_EQ(box(modal).text(), text);
            modal.close();
        });
    }
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 1);
    waitForTheUser();
}

TEST_F(QtDialogsTest, anAlertAnswersTheButton)
{
    const std::pair<std::function<void(QWidget&)>, int> kWays[] = {
        {[](QWidget& modal) { box(modal).buttons().at(0)->click(); }, 0},
        {[](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Return); }, 0},
        {[](QWidget& modal) { QTest::keyClick(&modal, Qt::Key_Escape); }, 2},
        {[](QWidget& modal) { modal.close(); }, 2},
        {[](QWidget& modal) { box(modal).done(0); }, 2},
        {[](QWidget& modal) {
             for (QAbstractButton* const button : box(modal).buttons()) {
                 if (button->text() == "Save && wait")
                     button->click();
             }
         },
            1},
    };
    for (const auto& [way, answer] : kWays) {
        user(way);
        EXPECT_EQ(m_dialogs.runAlert("Message", "More", {"Quit & lose", "Save & wait", "Cancel"}),
            Dialogs::kFirstButton + answer);
    }
}

TEST_F(QtDialogsTest, aDialogMayGoWithItsWindow)
{
    auto* const window = new QWidget;
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    user([&](QWidget&) { delete window; });
    EXPECT_EQ(m_dialogs.runAlert("Message", {}, {"Yes", "No"}), Dialogs::kFirstButton + 1);
}

TEST_F(QtDialogsTest, aQuestionOutlivesAPanelThatWasJustDismissed)
{
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
    for (const char* const name : {"Export.csv", "a.pdf.csv"}) {
        QFile file(documents() + '/' + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const struct {
        QString typed;
        std::optional<QMessageBox::StandardButton> answer;
        QString saved; ///< null: nothing, once the user has given up
    } kCases[] = {{"", {}, "Höhe 15-03-2024.csv"}, {"plain", {}, "plain.csv"}, {"same.CSV", {}, "same.CSV"},
        {"other.pdf", {}, "other.pdf.csv"}, {"Export.csv", QMessageBox::No, {}},
        {"Export.csv", QMessageBox::Yes, "Export.csv"}, {"a.pdf", QMessageBox::No, {}},
        {"a.pdf", QMessageBox::Yes, "a.pdf.csv"}};
    for (const auto& [typed, answer, saved] : kCases) {
        userSavesAs(typed, answer);
        if (saved.isNull())
            user([](QWidget& modal) { dynamic_cast<QFileDialog&>(modal).reject(); });
        EXPECT_EQ(m_dialogs.runSavePanel("Höhe 15/03/2024.csv"),
            saved.isNull() ? std::nullopt : std::optional(documents() + '/' + saved))
            << qPrintable(typed);
    }
}
}
