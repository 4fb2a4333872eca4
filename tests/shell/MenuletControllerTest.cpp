#include "shell/MenuletController.h"

#include "shell/MenuletView.h"
#include "shell/WindowTest.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {
using MenuletControllerTest = WindowTest;
}

TEST_F(MenuletControllerTest, aClickBeforeTheSetupShowsNothing)
{
    properties().setWeight(0);
    start();
    menulet().menuletClicked();
    EXPECT_TRUE(menulet().isActive());
    EXPECT_FALSE(menulet().mainWindow().isWindowVisible());
}

TEST_F(MenuletControllerTest, iconFollowsTheDeskWithoutAClick)
{
    start();
    const auto expect = [&](bool isConnected, const char* toolTip) {
        EXPECT_EQ(menulet().isDeviceConnected(), isConnected);
        EXPECT_EQ(world->app->statusItem().toolTip(), QString::fromLatin1(toolTip));
    };
    expect(false, "TrayTooltipDisconnected");
    desk = world->plugDesk(900);
    expect(true, "TrayTooltipConnected");
    world->hid.unplug(desk);
    expect(false, "TrayTooltipDisconnected");
}

TEST_F(MenuletControllerTest, theIconIsThePictureOfTheStateInset)
{
    constexpr QSize kSize(44, 60);
    QPixmap expected(kSize);
    expected.fill(Qt::transparent);
    QPainter painter(&expected);
    QSvgRenderer(Bundle::imagePath(QStringLiteral("StatusItemIconDisconnected")))
        .render(&painter, QRectF(4, 12, 36, 36)); // In proportion.
    painter.end();
    EXPECT_EQ(MenuletView::icon(false).pixmap(kSize).toImage(), expected.toImage());
    EXPECT_NE(MenuletView::icon(true).pixmap(kSize).toImage(), expected.toImage());
}
