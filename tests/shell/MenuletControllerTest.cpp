#include "shell/MenuletController.h"

#include "shell/MainWindowController.h"
#include "shell/MenuletView.h"
#include "shell/Notification.h"
#include "shell/NotificationWindowController.h"
#include "shell/ShellWorld.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
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
    EXPECT_EQ(world.app->statusItem().toolTip(), QStringLiteral("TrayTooltipConnected"));
    world.hid.unplug(desk);
    EXPECT_FALSE(menulet.isDeviceConnected());
    EXPECT_EQ(world.app->statusItem().toolTip(), QStringLiteral("TrayTooltipDisconnected"));
}

TEST(MenuletController, openingTheMainWindowDismissesTheReminder)
{
    ShellWorld world;
    world.completeSetup();
    world.app->applicationDidFinishLaunching();
    MenuletController& menulet = world.app->menuletController();
    menulet.dismissNotification();
    const QWidgetList windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::none_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->objectName() == QStringLiteral("NotificationWindow");
    })) << "none is made only to be closed";
    menulet.showNotification(std::make_shared<Notification>(1));
    EXPECT_TRUE(menulet.notificationWindow().isWindowVisible());
    menulet.menuletClicked();
    world.platform.runLoop.advance(0.5);
    EXPECT_FALSE(menulet.notificationWindow().isWindowVisible());
    EXPECT_TRUE(menulet.mainWindow().isWindowVisible());
}

TEST(MenuletController, theMainWindowIsFreshWhenItOpensAndStaysSo)
{
    ShellWorld world;
    world.completeSetup(); // 15 minutes an hour in 8 hours are 120 minutes a day.
    world.app->applicationDidFinishLaunching();
    MenuletController& menulet = world.app->menuletController();
    const auto* const percent =
        menulet.mainWindow().window().findChild<QLabel*>(QStringLiteral("labelPercent"));
    world.plugDesk(4000);
    menulet.menuletClicked();
    menulet.menuletClicked();
    world.platform.runLoop.advance(13 * Date::kMinute);
    EXPECT_NE(percent->text(), QStringLiteral("10")) << "a closed window is not refreshed";
    menulet.menuletClicked();
    EXPECT_EQ(percent->text(), QStringLiteral("10"));
    world.platform.runLoop.advance(12 * Date::kMinute);
    EXPECT_EQ(percent->text(), QStringLiteral("20"));
}

TEST(MenuletView, passesClicksOnAndShowsThePictureOfTheState)
{
    ShellWorld world;
    world.app->setupStatusBar();
    MenuletController& menulet = world.app->menuletController();
    {
        StatusItem item;
        MenuletView view(item);
        view.setDelegate(&menulet);
        view.mouseDown();
        EXPECT_TRUE(menulet.isActive());
    }
    menulet.setActive(false); // The view is gone and is not told.

    QPixmap expected(22, 22);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    QSvgRenderer(Bundle::imagePath(QStringLiteral("StatusItemIcon"))).render(&painter, QRectF(2, 2, 18, 18));
    painter.end();
    EXPECT_EQ(MenuletView::icon(true).pixmap(22).toImage(), expected.toImage());
}

TEST(MenuletView, iconsAreInsetAndTellTheStatesApart)
{
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        SCOPED_TRACE(size);
        const QImage connected = MenuletView::icon(true).pixmap(size).toImage();
        const QImage disconnected = MenuletView::icon(false).pixmap(size).toImage();
        EXPECT_NE(connected, disconnected);
        EXPECT_GT(meanAlpha(MenuletView::icon(true).pixmap(size)), 0.1);
        for (int i = 0; i < size; ++i) {
            EXPECT_EQ(qAlpha(connected.pixel(i, 0)), 0);
            EXPECT_EQ(qAlpha(connected.pixel(0, i)), 0);
        }
    }
}
