#pragma once

#include "data/ManagedObjectContext.h"
#include "data/PersistentStoreCoordinator.h"
#include "fakes/TestPlatform.h"

#include <sqlite3.h>

/// A store file in the test's folder, and the one context over it.
class TestStore {
public:
    explicit TestStore(const TestPlatform& platform)
        : path(platform.folder.filePath(QStringLiteral("StandUp.storedata")))
    {
        open();
    }

    /// Closes the store and opens it as the next start of the program would: what was not saved is gone.
    void reopen()
    {
        close();
        open();
    }
    void close()
    {
        context.reset();
        coordinator.reset();
    }

    /// A record with all its values; it still has to be saved.
    ActivityRef insert(double start, double end, bool isStanding, double weight = 80)
    {
        ActivityRef activity = context->insertActivity();
        activity->setStartDate(Date(start));
        activity->setEndDate(Date(end));
        activity->setIsStanding(isStanding);
        activity->setWeight(weight);
        return activity;
    }

    /// Every record there is.
    std::vector<ActivityRef> all()
    {
        Error error;
        auto activities = context->fetch(Date(-1e15), Date(1e15), std::nullopt, error);
        EXPECT_TRUE(activities) << qPrintable(error.localizedDescription);
        return activities.value_or(std::vector<ActivityRef>());
    }

    void execute(const char* sql)
    {
        EXPECT_EQ(sqlite3_exec(coordinator->connection(), sql, nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    }

    const QString path;
    std::shared_ptr<PersistentStoreCoordinator> coordinator;
    std::shared_ptr<ManagedObjectContext> context;

private:
    void open()
    {
        Error error;
        coordinator = PersistentStoreCoordinator::open({}, path, error);
        ASSERT_TRUE(coordinator) << qPrintable(error.localizedDescription);
        context = std::make_shared<ManagedObjectContext>(coordinator);
    }
};
