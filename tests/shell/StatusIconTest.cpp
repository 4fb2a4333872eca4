#include "shell/StatusIcon.h"

#include <QApplication>
#include <QPalette>

#include <gtest/gtest.h>
#include <utility>

TEST(StatusIcon, knowsADarkPanelOfKde)
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    for (const auto& [windows, panel] :
        {std::pair(Qt::black, PanelGround::Dark), {Qt::white, PanelGround::Light}}) {
        QApplication::setPalette(QPalette(windows));
        EXPECT_EQ(panelGround(), panel);
    }
    qunsetenv("XDG_CURRENT_DESKTOP");
}
