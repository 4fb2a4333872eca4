#include "fakes/TestPlatform.h"

TestPlatform::TestPlatform(const QJsonObject& information)
    : SimulatedDesktop(kStart, information)
{
}

void TestPlatform::restart(Bundle* otherBundle)
{
    ProcessServices::Backends backends = services->backends();
    if (otherBundle)
        backends.bundle = otherBundle;
    services.reset();
    services.emplace(backends);
}

QJsonObject TestPlatform::defaultInformation()
{
    return {
        {QStringLiteral("CFBundleName"), QStringLiteral("StandUp")},
        {QStringLiteral("CFBundleShortVersionString"), QStringLiteral("1.0.1")},
        {QStringLiteral("ZelvoFontName"), QStringLiteral("Open Sans")},
        {QStringLiteral("ZelvoColor1"), QStringLiteral("#00707A")},
        {QStringLiteral("ActivityModeDefault"), QStringLiteral("2")},
        {QStringLiteral("DevicePosition1"), 700},
        {QStringLiteral("DevicePosition2"), 4300},
        {QStringLiteral("DevicePosition3"), 4700},
        {QStringLiteral("TablePositionOffset"), 6200},
        {QStringLiteral("InfoUrl"), QStringLiteral("https://zelvo.example/info")},
        {QStringLiteral("ErrorUrl"), QStringLiteral("https://zelvo.example/errors")},
        {QStringLiteral("VideoUrl"), QStringLiteral("https://zelvo.example/video")},
    };
}
