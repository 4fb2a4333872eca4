#include "shell/MenuletController.h"

#include "shell/MenuletView.h"
#include "shell/WindowTest.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {
using MenuletControllerTest = WindowTest;
}

TEST_F(MenuletControllerTest, clicksFlipTheStateAndShowTheWindowOnceSetUp)
{
    for (const bool isSetUp : {true, false}) {
        SCOPED_TRACE(isSetUp);
        beginAnew();
        if (!isSetUp)
            properties().setWeight(0);
        start();
        menulet().menuletClicked();
        EXPECT_TRUE(menulet().isActive());
        EXPECT_EQ(menulet().mainWindow().isWindowVisible(), isSetUp);
        menulet().menuletClicked();
        EXPECT_FALSE(menulet().isActive());
        EXPECT_FALSE(menulet().mainWindow().isWindowVisible());
    }
}

TEST_F(MenuletControllerTest, iconFollowsTheDeskWithoutAClick)
{
    start();
    EXPECT_FALSE(menulet().isDeviceConnected());
    desk = world->plugDesk(900);
    EXPECT_TRUE(menulet().isDeviceConnected());
    EXPECT_EQ(world->app->statusItem().toolTip(), QStringLiteral("TrayTooltipConnected"));
    world->hid.unplug(desk);
    EXPECT_FALSE(menulet().isDeviceConnected());
    EXPECT_EQ(world->app->statusItem().toolTip(), QStringLiteral("TrayTooltipDisconnected"));
}

TEST_F(MenuletControllerTest, aClosedWindowIsNotRefreshedAndIsFreshWhenItOpens)
{
    start();
    QWidget& window = openMainWindow();
    menulet().menuletClicked();
    pass(5); // The timer that was left ends.
    world->plugDesk(4000);
    pass(7 * Date::kMinute);
    const QString before = text(window, "labelPercent");
    pass(8 * Date::kMinute);
    EXPECT_EQ(text(window, "labelPercent"), before);
    menulet().menuletClicked(); // 18 minutes an hour in 8 hours are 144 minutes a day.
    EXPECT_EQ(text(window, "labelPercent"), QStringLiteral("10"));
}

TEST_F(MenuletControllerTest, theIconIsThePictureOfTheStateInset)
{
    for (const QSize size : {QSize(22, 22), QSize(44, 60)}) {
        QPixmap expected(size);
        expected.fill(Qt::transparent);
        QPainter painter(&expected);
        const double inset = size.width() / 11.0;
        const double side = size.width() - 2 * inset;
        QSvgRenderer(Bundle::imagePath(QStringLiteral("StatusItemIconDisconnected")))
            .render(&painter, QRectF(inset, (size.height() - side) / 2, side, side)); // In proportion.
        painter.end();
        EXPECT_EQ(MenuletView::icon(false).pixmap(size).toImage(), expected.toImage());
        EXPECT_NE(MenuletView::icon(true).pixmap(size).toImage(), expected.toImage());
    }
}
