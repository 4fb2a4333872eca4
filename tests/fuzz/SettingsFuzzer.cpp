#include "data/AppProperties.h"
#include "fakes/TestPlatform.h"
#include "fuzz/Demand.h"
#include "platform/qt/QtUserDefaults.h"

#include <QFile>

/// The bytes are the settings file that a start finds.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    TestPlatform platform;
    const QString path = platform.folder.filePath(QStringLiteral("StandUp.conf"));
    QFile file(path);
    demand(file.open(QIODevice::WriteOnly), "the settings can be written");
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    file.close();

    const auto start = [&](auto&& use) {
        QtUserDefaults defaults(path);
        const ProcessServices process({&platform.runLoop, &platform.bundle, &defaults});
        use(defaults, AppProperties::instance());
    };
    start([](UserDefaults& defaults, AppProperties& properties) {
        properties.setWeight(71.5);
        demand(defaults.synchronize(), "what was changed is saved");
    });
    start([](UserDefaults&, AppProperties& properties) {
        demand(properties.weight() == 71.5, "what was saved is there at the next start");
    });
    return 0;
}
