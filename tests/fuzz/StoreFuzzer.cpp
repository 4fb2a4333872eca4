#include "fakes/Files.h"
#include "fakes/TestStore.h"
#include "fuzz/Demand.h"

#include <algorithm>
#include <functional>

namespace {
/// A store with some records, as the program leaves it.
QByteArray soundStore()
{
    const TestPlatform platform;
    TestStore store(platform);
    for (int day = 0; day < 40; ++day)
        store.insert(86400.0 * day, 86400.0 * day + 700 * (day + 1), day % 2 == 0, 61.5);
    Error error;
    demand(store.context->save(error), "a sound store is saved");
    store.close();
    return contents(store.path);
}
}

/// Each three bytes of the input damage one byte of a sound store: where (two bytes) and what it becomes.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const QByteArray sound = soundStore();
    QByteArray bytes = sound;
    for (size_t i = 0; i + 2 < size; i += 3)
        bytes[qsizetype(data[i] + 256U * data[i + 1]) % bytes.size()] = char(data[i + 2]);

    const TestPlatform platform;
    const QString path = platform.folder.filePath(QStringLiteral("StandUp.storedata"));
    write(path, bytes);
    Error error;
    const std::shared_ptr<PersistentStoreCoordinator> coordinator =
        PersistentStoreCoordinator::open({}, path, error);
    if (!coordinator) {
        demand(contents(path) == bytes, "a store that cannot be opened is left as it is");
        return 0;
    }
    // Whatever passed for sound is used as the program uses it.
    ManagedObjectContext context(coordinator);
    const auto activities = context.fetch(Date(-1e15), Date(1e15), std::nullopt, error);
    demand(!activities || std::none_of(activities->begin(), activities->end(), std::logical_not<>()),
        "every record fetched is one");
    context.insertActivity();
    static_cast<void>(context.save(error));
    return 0;
}
