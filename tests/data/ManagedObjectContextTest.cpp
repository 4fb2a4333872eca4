#include "data/ManagedObjectContext.h"

#include "fakes/Files.h"
#include "fakes/TestStore.h"

#include <QDir>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {
struct ManagedObjectContextTest : testing::Test {
    TestPlatform platform;
    TestStore store {platform};
    Error error;
};
}

TEST_F(ManagedObjectContextTest, aRecordIsOneObjectAndAChangeIsSavedThoughNobodyHoldsIt)
{
    ActivityRef record = store.insert(900, 1100.125, false, 99);
    ASSERT_TRUE(store.context->save(error));
    const std::function<void()> kChanges[] = {[&] { record->setStartDate(Date(1000.25)); },
        [&] { record->setIsStanding(true); }, [&] { record->setWeight(71.5); }};
    for (const auto& change : kChanges) {
        change();
        EXPECT_TRUE(store.context->hasChanges());
        ASSERT_TRUE(store.context->save(error));
    }
    record->setEndDate(record->endDate());
    EXPECT_TRUE(store.context->commitEditing() && !store.context->hasChanges());
    record->setEndDate(Date(1150.5));
    EXPECT_TRUE(store.context->hasChanges());
    EXPECT_EQ(store.all(), std::vector {record});
    record.reset();
    EXPECT_EQ(store.all().at(0)->endDate(), Date(1150.5));
    ASSERT_TRUE(store.context->save(error));
    store.reopen();
    const auto all = store.all();
    EXPECT_EQ(all.at(0)->period(), (ActivityPeriod {Date(1000.25), Date(1150.5), true}));
    EXPECT_EQ(all[0]->weight(), 71.5);
    EXPECT_TRUE(all[0]->pulse());
    const ActivityRef unsaved = store.insert(1200, 1300, true);
    store.close();
    EXPECT_FALSE(all[0]->pulse() || unsaved->pulse()) << "a record may be held longer than its context";
}

/// Whatever becomes of the file, the record that somebody holds and those that wait are in the one that lies
/// there afterwards, and what was taken away is whole.
TEST_F(ManagedObjectContextTest, aStoreThatIsGoneIsBegunAnewWithTheOpenRecord)
{
    const QString aside = platform.folder.filePath("aside");
    // What happens, what the saves report, and how many records there are then.
    const std::tuple<std::function<void()>, QStringList, size_t> kCases[] = {
        {[&] { QDir(QFileInfo(store.path).path()).removeRecursively(); }, {"StoreGone", "saved"}, 2},
        {[&] { QFile::rename(store.path, aside); }, {"StoreGone", "saved"}, 2},
        // Replaced by a copy with the open record, by something else, and that taken away again.
        {[&] { std::rename(qPrintable(aside), qPrintable(store.path)); }, {"StoreGone", "saved"}, 3},
        {[&] {
             write(aside, QByteArray("no store").repeated(512));
             std::rename(qPrintable(aside), qPrintable(store.path));
         },
            {"StoreGone", "StoreDamaged", "StoreDamaged"}, 0},
        {[&] { QFile::remove(store.path); }, {"saved"}, 3},
    };
    QStringList reports;
    store.context->setTroubleObserver([&](const std::optional<Error>& trouble) {
        reports.append(trouble ? trouble->localizedDescription : "saved");
    });
    store.insert(100, 200, false);
    const ActivityRef open = store.insert(1000, 1100, true, 71.5);
    ASSERT_TRUE(store.context->save(error));
    for (const auto& [spoil, expectedReports, records] : kCases) {
        SCOPED_TRACE(records);
        reports.clear();
        spoil();
        open->setEndDate(open->endDate().dateByAddingSeconds(15));
        store.insert(open->endDate().secondsSince1970() + 5000, 9000, true);
        for (int pulse = 0; pulse < 2; ++pulse)
            EXPECT_EQ(store.context->save(error), records > 0);
        EXPECT_EQ(reports, expectedReports);
        if (records == 0)
            continue;
        EXPECT_EQ(std::ranges::count(store.all(), open), 1) << "still the same object";
        const auto onDisk = TestStore(platform).all();
        EXPECT_EQ(onDisk.size(), records);
        EXPECT_EQ(std::ranges::count(onDisk, open->period(), &Activity::period), 1);
    }
}
