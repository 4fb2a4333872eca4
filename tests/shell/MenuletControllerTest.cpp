#include "shell/MenuletController.h"

#include "shell/MainWindowController.h"
#include "shell/MenuletView.h"
#include "shell/Notification.h"
#include "shell/NotificationWindowController.h"
#include "shell/ShellWorld.h"

#include <QImage>

#include <gtest/gtest.h>

namespace {
double meanAlpha(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += qAlpha(image.pixel(x, y));
    return sum / (255.0 * image.width() * image.height());
}
}

TEST(MenuletController, beforeSetupAClickFlipsTheStateAndShowsNothing)
{
    ShellWorld world;
    world.app->setupStatusBar();
    MenuletController& menulet = world.app->menuletController();
    menulet.menuletClicked();
    EXPECT_TRUE(menulet.isActive());
    EXPECT_FALSE(menulet.mainWindow().isWindowVisible());
    menulet.menuletClicked();
    EXPECT_FALSE(menulet.isActive());
}

TEST(MenuletController, clicksToggleTheMainWindowAndItsCloseButtonEndsTheState)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    MenuletController& menulet = world.app->menuletController();
    menulet.menuletClicked();
    EXPECT_TRUE(menulet.mainWindow().isWindowVisible());
    menulet.menuletClicked();
    EXPECT_FALSE(menulet.mainWindow().isWindowVisible());
    menulet.menuletClicked();
    menulet.mainWindowButtonCloseClicked();
    EXPECT_FALSE(menulet.isActive());
    EXPECT_FALSE(menulet.mainWindow().isWindowVisible());
}

TEST(MenuletController, iconFollowsTheDeskWithoutAClick)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    MenuletController& menulet = world.app->menuletController();
    EXPECT_FALSE(menulet.isDeviceConnected());
    const auto desk = world.plugDesk(900);
    EXPECT_TRUE(menulet.isDeviceConnected());
    world.hid.unplug(desk);
    EXPECT_FALSE(menulet.isDeviceConnected());
}

TEST(MenuletController, openingTheMainWindowDismissesTheReminder)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    MenuletController& menulet = world.app->menuletController();
    menulet.dismissNotification();
    menulet.showNotification(std::make_shared<Notification>(1));
    EXPECT_TRUE(menulet.notificationWindow().isWindowVisible());
    menulet.menuletClicked();
    world.platform.runLoop.advance(0.5);
    EXPECT_FALSE(menulet.notificationWindow().isWindowVisible());
    EXPECT_TRUE(menulet.mainWindow().isWindowVisible());
}

TEST(MenuletView, iconsAreInsetAndTellTheStatesApart)
{
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        SCOPED_TRACE(size);
        const QImage connected = MenuletView::drawIcon(true, size).toImage();
        const QImage disconnected = MenuletView::drawIcon(false, size).toImage();
        EXPECT_NE(connected, disconnected);
        EXPECT_GT(meanAlpha(MenuletView::drawIcon(true, size)), 0.1);
        for (int i = 0; i < size; ++i) {
            EXPECT_EQ(qAlpha(connected.pixel(i, 0)), 0);
            EXPECT_EQ(qAlpha(connected.pixel(0, i)), 0);
        }
    }
}
