#include "data/AppProperties.h"
#include "fakes/TestPlatform.h"
#include "fuzz/Demand.h"
#include "platform/qt/QtUserDefaults.h"

#include <QFile>

/// The bytes are the settings file that a start finds.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const TestPlatform platform;
    const QString path = platform.folder.filePath(QStringLiteral("StandUp.conf"));
    QFile file(path);
    demand(file.open(QIODevice::WriteOnly), "the settings can be written");
    file.write(reinterpret_cast<const char*>(data), qint64(size));
    file.close();

    QtUserDefaults defaults(path);
    UserDefaults::setStandard(&defaults);
    AppProperties::resetInstance();
    AppProperties& properties = AppProperties::instance();
    properties.setWeight(71.5);
    demand(defaults.synchronize(), "what was changed is saved");

    QtUserDefaults next(path);
    UserDefaults::setStandard(&next);
    AppProperties::resetInstance();
    demand(AppProperties::instance().weight() == 71.5, "what was saved is there at the next start");
    AppProperties::resetInstance();
    return 0;
}
