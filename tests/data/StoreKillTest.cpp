// Kills a program that writes the store, at random moments, and checks that no confirmed record is lost.
//   store_kill_test [ROUNDS]         20 rounds unless said otherwise
//   store_kill_test --writer PATH N  what it kills: the Nth writer on that store

#include "data/ActivityPersister.h"
#include "fakes/TestStore.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace {
constexpr double kPulseInterval = 15;
constexpr int kPulsesARecord = 8;

/// What the writer has been told is on disk. The weight is the record's name.
struct Confirmation {
    double weight;
    double start;
    double end;
};

void confirm(const Activity& activity)
{
    const Confirmation confirmation {
        activity.weight(), activity.startDate().secondsSince1970(), activity.endDate().secondsSince1970()};
    if (write(STDOUT_FILENO, &confirmation, sizeof confirmation) != sizeof confirmation)
        _exit(1);
}

/// Opens one period after the other, extends each by pulses, and reports each save that answered true.
[[noreturn]] void runWriter(const char* path, int number)
{
    freopen("/dev/null", "w", stderr);
    TestPlatform platform;
    platform.runLoop.advance(1e6 * number);
    Error error;
    const auto context = std::make_shared<ManagedObjectContext>(
        PersistentStoreCoordinator::open({}, QString::fromLocal8Bit(path), error));
    ActivityPersister persister(context);
    for (int record = 0;; ++record) {
        const double weight = number * 1e6 + record;
        const ActivityRef activity =
            persister.createWithStartDate(Date::now(), Date::now(), record % 2 == 0, weight);
        if (!activity)
            _exit(2);
        confirm(*activity);
        for (int pulse = 0; pulse < kPulsesARecord; ++pulse) {
            platform.runLoop.advance(kPulseInterval);
            if (!activity->pulse())
                _exit(3);
            confirm(*activity);
        }
    }
}

class Killer {
public:
    explicit Killer(const char* path)
        : m_path(path)
    {
    }

    /// Starts a writer, kills it after some confirmations and a moment more, and keeps what it confirmed.
    bool round(int number, int confirmations, unsigned microseconds)
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            return false;
        const pid_t writer = fork();
        if (writer == 0) {
            dup2(ends[1], STDOUT_FILENO);
            execl("/proc/self/exe", "store_kill_test", "--writer", m_path.c_str(),
                std::to_string(number).c_str(), nullptr);
            _exit(4);
        }
        close(ends[1]);
        for (int i = 0; i < confirmations && readConfirmation(ends[0]); ++i) { }
        usleep(microseconds);
        kill(writer, SIGKILL);
        while (readConfirmation(ends[0])) { }
        close(ends[0]);
        int status = 0;
        waitpid(writer, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    /// Opens the store and looks every confirmed record up. A pulse may have been saved and not been
    /// reported.
    bool check() const
    {
        Error error;
        std::shared_ptr<PersistentStoreCoordinator> coordinator =
            PersistentStoreCoordinator::open({}, QString::fromStdString(m_path), error);
        if (!coordinator) {
            printf("The store does not open: %s\n", qPrintable(error.localizedDescription));
            return false;
        }
        ManagedObjectContext context(coordinator);
        const auto activities = context.fetch(Date(-1e15), Date(1e15), std::nullopt, error);
        if (!activities)
            return false;
        std::map<double, Confirmation> stored;
        for (const ActivityRef& activity : *activities) {
            stored[activity->weight()] = {activity->weight(), activity->startDate().secondsSince1970(),
                activity->endDate().secondsSince1970()};
        }
        for (const auto& [weight, confirmed] : m_confirmed) {
            const auto found = stored.find(weight);
            if (found == stored.end() || found->second.start != confirmed.start
                || found->second.end < confirmed.end || found->second.end > confirmed.end + kPulseInterval) {
                printf("Record %.0f is lost or older than what was confirmed.\n", weight);
                return false;
            }
        }
        // At most one record was written by each writer without being reported.
        return stored.size() <= m_confirmed.size() + size_t(m_writers);
    }

    /// The next writer makes a new store.
    void startAnew()
    {
        for (const char* suffix : {"", "-wal", "-shm", "-journal"})
            unlink((m_path + suffix).c_str());
        m_confirmed.clear();
        m_writers = 0;
    }

    [[nodiscard]] size_t confirmedRecords() const { return m_confirmed.size(); }
    [[nodiscard]] long confirmations() const { return m_confirmations; }
    void countWriter() { ++m_writers; }

private:
    bool readConfirmation(int pipe)
    {
        Confirmation confirmation {};
        if (read(pipe, &confirmation, sizeof confirmation) != sizeof confirmation)
            return false;
        m_confirmed[confirmation.weight] = confirmation;
        ++m_confirmations;
        return true;
    }

    std::string m_path;
    std::map<double, Confirmation> m_confirmed;
    long m_confirmations = 0;
    int m_writers = 0;
};
}

int main(int argc, char** argv)
{
    if (argc == 4 && strcmp(argv[1], "--writer") == 0)
        runWriter(argv[2], atoi(argv[3]));
    const QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? atoi(argv[1]) : 20;
    const TestPlatform platform;
    Killer killer(qPrintable(platform.folder.filePath(QStringLiteral("StandUp.storedata"))));
    std::mt19937 engine(std::random_device {}());
    for (int round = 0; round < rounds; ++round) {
        // Every fourth writer is killed while it makes the store, the others between or during their saves.
        const bool isNew = round % 4 == 0;
        if (isNew)
            killer.startAnew();
        const int confirmations = isNew && round % 8 == 0 ? 0 : int(engine() % 600);
        killer.countWriter();
        if (!killer.round(round, confirmations, unsigned(engine() % 20000)) || !killer.check()) {
            printf("Round %d of %d failed.\n", round + 1, rounds);
            return 1;
        }
    }
    printf("%d kills, %ld confirmed saves, none lost.\n", rounds, killer.confirmations());
    return rounds > 0 ? 0 : 1;
}
