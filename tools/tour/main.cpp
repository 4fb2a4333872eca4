// The demonstration for people without a desk: the whole program on the simulated desk, without a screen, in
// virtual time.

#include "Pictures.h"
#include "Tour.h"
#include "resources/Resources.h"
#include "ui/Motion.h"

#include <QApplication>
#include <QPalette>
#include <QTextStream>

#include <cstdio>

namespace {
constexpr char kUsage[] =
    R"(Usage: zelvo-tour [--pictures FOLDER [de|fr|es|nl|rtl|dark] [dark-look] [SCALE...]]
Walks through a working morning with the real program on the simulated desk, in virtual time and without a screen, and
checks what it shows. Ends with a non-zero status when something is off.

  --pictures FOLDER  make pictures of every window instead: in English, in another language, from right to left, or
                     on a dark desktop; in the dark look; at scales 1 and 2, or at those that are named
)";

constexpr char kIntroduction[] =
    R"(A working morning with the real program, on a simulated desk and in virtual time. Each line begins with the time
of day. "write" and "read" are the reports on the wire to the desk, in hexadecimal and in words; "recorded" is a
period of sitting or standing that has been closed; [ok] and [FAILED] are what the tour checks.
)";

int walk()
{
    QTextStream(stdout) << kIntroduction;
    TourWorld world;
    Tour tour(world);
    tour.run();
    QTextStream(stdout) << "\nTour: " << tour.checks() - tour.failures() << " passed, " << tour.failures()
                        << " failed" << Qt::endl;
    return tour.failures() == 0 ? 0 : 1;
}

/// The scales among the arguments.
std::vector<double> scales(const QStringList& arguments)
{
    std::vector<double> named;
    for (const QString& argument : arguments) {
        if (const double scale = argument.toDouble(); scale > 0)
            named.push_back(scale);
    }
    return named.empty() ? std::vector {1.0, 2.0} : named;
}

int photograph(QApplication& application, QStringList arguments)
{
    const bool hasDarkLook = arguments.removeOne("dark-look");
    const QString variant = arguments.value(1).toDouble() > 0 ? QString() : arguments.value(1);
    const bool isMirrored = variant == "rtl";
    const bool isDark = variant == "dark";
    const bool isForeign = !variant.isEmpty() && !isMirrored && !isDark;
    if (isForeign && !installTexts(application, variant))
        return 2;
    if (isMirrored)
        QApplication::setLayoutDirection(Qt::RightToLeft);
    if (isDark)
        QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    const QString suffix =
        (variant.isEmpty() ? QString() : u'-' + variant) + (hasDarkLook ? "-dark-look" : "");
    const QLocale locale(isForeign ? variant : QString("en_GB"));
    const auto appearance = hasDarkLook ? Appearance::Dark : Appearance::Light;
    return makePictures(arguments[0], suffix, locale, appearance, scales(arguments.mid(1))) ? 0 : 1;
}
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    QApplication::setStyle("Fusion");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Motion::setReduced(true); // A picture is taken at once.
    initResources();
    installTexts(application, "en");

    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 1)
        return walk();
    if (arguments.size() >= 3 && arguments[1] == "--pictures")
        return photograph(application, arguments.mid(2));
    QTextStream(stdout) << kUsage;
    return arguments.size() == 2 && arguments[1] == "--help" ? 0 : 2;
}
