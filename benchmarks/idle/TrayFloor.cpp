// The floor that the program is measured against: a Qt Widgets program with a tray icon and the program's
// timers, which do nothing.

#include <QApplication>
#include <QPixmap>
#include <QSystemTrayIcon>
#include <QTimer>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    QPixmap pixmap(22, 22);
    pixmap.fill(Qt::darkCyan);
    QSystemTrayIcon icon {QIcon(pixmap)};
    icon.show();

    constexpr int kMilliseconds[] = {1000, 10000, 15000}; // Status poll, idle poll, pulse.
    QTimer timers[std::size(kMilliseconds)];
    for (size_t i = 0; i < std::size(kMilliseconds); ++i) {
        timers[i].setTimerType(Qt::VeryCoarseTimer);
        timers[i].start(kMilliseconds[i]);
    }
    return QApplication::exec();
}
