#pragma once

#include "data/ActivityPersister.h"
#include "resources/Resources.h"
#include "shell/MainWindowController.h"
#include "shell/Notification.h"
#include "shell/NotificationWindowController.h"
#include "shell/ShellWorld.h"

#include <QCursor>
#include <QLabel>
#include <QTest>
#include <QTranslator>

#include <gtest/gtest.h>
#include <optional>
#include <utility>

/// A test of windows in the running program, after a finished set-up. Controls are found by object name and
/// worked by mouse and keys. Texts are their keys unless a test installs a language.
class WindowTest : public testing::Test {
protected:
    static constexpr uint16_t kStop = 0x8001;

    using Commands = std::vector<uint16_t>;

    WindowTest()
    {
        initResources();
        world->completeSetup();
        QCursor::setPos(790, 590);
    }
    ~WindowTest() override
    {
        qDeleteAll(qApp->findChildren<QTranslator*>(QString(), Qt::FindDirectChildrenOnly));
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    /// Another program in another folder, with a finished set-up.
    void beginAnew()
    {
        world.reset();
        world.emplace();
        world->completeSetup();
    }
    void set(const char* key, double value)
    {
        world->platform.defaults.values[QString::fromLatin1(key)] = value;
    }
    void start() { world->app->applicationDidFinishLaunching(); }
    /// The program with a desk at which the user sits.
    void startWithDesk()
    {
        start();
        world->platform.plug(900);
    }
    MenuletController& menulet() { return world->app->menuletController(); }
    static AppProperties& properties() { return AppProperties::instance(); }
    ScheduleManager& schedule() { return *properties().zelvoController()->scheduleManager(); }
    void pass(double seconds)
    {
        world->platform.runLoop.advance(seconds);
        QApplication::processEvents();
    }
    QWidget& openMainWindow()
    {
        menulet().menuletClicked();
        QApplication::processEvents();
        return menulet().mainWindow().window();
    }
    QWidget& remind(int32_t position)
    {
        menulet().showNotification(std::make_shared<Notification>(position));
        QApplication::processEvents();
        return menulet().notificationWindow().window();
    }

    template <typename Widget = QWidget>
    static Widget& in(const QWidget& window, const char* name)
    {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QString text(const QWidget& window, const char* label) { return in<QLabel>(window, label).text(); }
    /// The commands that the adapter has been sent since the last call.
    Commands commands()
    {
        Commands sent;
        for (const auto& report : std::exchange(world->platform.written, {})) {
            if (report[0] == 5)
                sent.push_back(uint16_t(report[1] | report[2] << 8));
        }
        return sent;
    }
    std::optional<ShellWorld> world {std::in_place};
};
