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
        QDir(m_home.path()).mkdir(QStringLiteral("Documents"));
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
    template <typename Dialog>
    void userMeets(std::function<void(Dialog&)> action)
    {
        m_user.emplace_back([action = std::move(action)](QWidget& widget) {
            auto* const dialog = qobject_cast<Dialog*>(&widget);
            ASSERT_TRUE(dialog) << widget.metaObject()->className();
            action(*dialog);
        });
    }
    static void saveAs(QFileDialog& dialog, const QString& name)
    {
        auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        ASSERT_TRUE(edit);
        if (!name.isEmpty())
            edit->selectAll();
        QTest::keyClicks(edit, name);
        QTest::keyClick(edit, Qt::Key_Return);
    }
    [[nodiscard]] QString documents() const { return m_home.filePath(QStringLiteral("Documents")); }

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

TEST_F(QtDialogsTest, anErrorIsShownAsItIsAndNotDealtWith)
{
    const Error error {QStringLiteral("YOUR_ERROR_DOMAIN"), 101,
        QStringLiteral("Expected a folder, found a file (/tmp/<b>a&b</b>)."), QStringLiteral("The reason.")};
    userMeets<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), error.localizedDescription);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.informativeText(), error.failureReason);
        EXPECT_TRUE(box.isModal());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_FALSE(m_dialogs.presentError(error));
    waitForTheUser();

    // The same again opens nothing, whatever its code; another one does, and the same once it was over.
    Error other = error;
    other.code = 102;
    EXPECT_FALSE(m_dialogs.presentError(other));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    other.failureReason = QStringLiteral("Another reason.");
    for (const Error& next : {other, error}) {
        userMeets<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_FALSE(m_dialogs.presentError(next));
        m_dialogs.forgetErrors(); // Too early: the user has not read it yet.
        EXPECT_FALSE(m_dialogs.presentError(next));
        waitForTheUser();
        m_dialogs.forgetErrors();
    }
}

TEST_F(QtDialogsTest, errorsThatComeTogetherAreShownOneAfterTheOther)
{
    for (const QString& text : {QStringLiteral("the cause"), QStringLiteral("its consequence")}) {
        EXPECT_FALSE(m_dialogs.presentError({QStringLiteral("domain"), 1, text, {}}));
        userMeets<QMessageBox>([text](QMessageBox& box) {
            EXPECT_EQ(box.text(), text);
            box.close();
        });
    }
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 1);
    waitForTheUser();
}

TEST_F(QtDialogsTest, anAlertAnswersTheButton)
{
    const std::pair<std::function<void(QMessageBox&)>, int> kTestCases[] = {
        {[](QMessageBox& box) { QTest::mouseClick(box.buttons().at(0), Qt::LeftButton); }, 0},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, 0},
        {[](QMessageBox& box) {
             for (QAbstractButton* const button : box.buttons()) {
                 if (button->text() == QStringLiteral("Save && wait"))
                     QTest::mouseClick(button, Qt::LeftButton);
             }
         },
            1},
        {[](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, 2},
        {[](QMessageBox& box) { box.close(); }, 2},
        {[](QMessageBox& box) { box.done(0); }, 2},
    };
    for (const auto& [action, answer] : kTestCases) {
        userMeets<QMessageBox>(action);
        EXPECT_EQ(
            m_dialogs.runAlert(QStringLiteral("Message"), QStringLiteral("More"),
                {QStringLiteral("Quit & lose"), QStringLiteral("Save & wait"), QStringLiteral("Cancel")}),
            Dialogs::kFirstButton + answer);
    }
}

TEST_F(QtDialogsTest, aDialogMayGoWithItsWindow)
{
    auto* const window = new QWidget;
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    userMeets<QWidget>([&](QWidget&) { delete window; });
    EXPECT_EQ(
        m_dialogs.runAlert(QStringLiteral("Message"), {}, {QStringLiteral("Yes"), QStringLiteral("No")}),
        Dialogs::kFirstButton + 1);
}

TEST_F(QtDialogsTest, aFileGoesIntoTheDocumentsFolderAndItsTypeStays)
{
    const char* const kTestCases[][2] = {
        {"", "Höhe 15-03-2024.csv"}, // Return alone takes the proposed name.
        {"plain", "plain.csv"},
        {"same.CSV", "same.CSV"},
        {"other.pdf", "other.pdf.csv"},
    };
    for (const auto& [typed, saved] : kTestCases) {
        userMeets<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(), QStringList {QStringLiteral("*.csv")});
            saveAs(dialog, QString::fromUtf8(typed));
        });
        EXPECT_EQ(m_dialogs.runSavePanel(QStringLiteral("Höhe 15/03/2024.csv")),
            documents() + u'/' + QString::fromUtf8(saved))
            << typed;
    }
}

TEST_F(QtDialogsTest, anExistingFileIsReplacedOnlyWithConsent)
{
    for (const QString& name : {QStringLiteral("Export.csv"), QStringLiteral("a.pdf")}) {
        QFile file(QDir(documents()).filePath(name.startsWith(u'a') ? QStringLiteral("a.pdf.csv") : name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        const auto saveIt = [&](QFileDialog& dialog) { saveAs(dialog, name); };
        userMeets<QFileDialog>(saveIt);
        userMeets<QMessageBox>(
            [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); });
        userMeets<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
        EXPECT_EQ(m_dialogs.runSavePanel(QStringLiteral("Export.csv")), std::nullopt);

        userMeets<QFileDialog>(saveIt);
        userMeets<QMessageBox>(
            [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); });
        EXPECT_TRUE(m_dialogs.runSavePanel(QStringLiteral("Export.csv")));
    }
}
}
