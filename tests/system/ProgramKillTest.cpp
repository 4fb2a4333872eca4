// Kills the real program at random moments while it starts and while it records, and checks that nothing is
// lost that another connection to the store had seen saved, and that the settings are whole.
//   program_kill_test PROGRAM [ROUNDS [LONGEST_LIFE_SECONDS]]     10 rounds of up to 4 s unless said
//   otherwise
//
// Several programs live at a time, each in a home of its own that it keeps from one life to the next.

#include "data/PersistentStoreCoordinator.h"
#include "fakes/TestPlatform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSettings>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <map>
#include <memory>
#include <random>
#include <signal.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {
constexpr int kHomes = 6;
constexpr useconds_t kPollMicroseconds = 20000;
constexpr double kPulseInterval = 15;
/// Timers keep full seconds only, and a busy machine comes late to them.
constexpr double kTimerSlack = 2;
constexpr const char kSettings[] =
    "[General]\nActivityGoal=15\nActivityMode=2\nNumberOfStandUps=2\nWeight=80\n";

double now()
{
    timespec time {};
    clock_gettime(CLOCK_REALTIME, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

struct Period {
    double start = 0;
    double end = 0;
};
using Periods = std::map<int64_t, Period>; // By row.

/// What is saved, read as any other program would; it changes nothing of the store or its log.
Periods savedPeriods(const QString& path)
{
    Periods periods;
    sqlite3* store = nullptr;
    sqlite3_stmt* rows = nullptr;
    if (sqlite3_open_v2(qPrintable(path), &store, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK) {
        sqlite3_db_config(store, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        if (sqlite3_prepare_v2(store, "SELECT id, startDate, endDate FROM Activity", -1, &rows, nullptr)
            == SQLITE_OK) {
            while (sqlite3_step(rows) == SQLITE_ROW)
                periods[sqlite3_column_int64(rows, 0)] = {
                    sqlite3_column_double(rows, 1), sqlite3_column_double(rows, 2)};
        }
    }
    sqlite3_finalize(rows);
    sqlite3_close(store);
    return periods;
}

/// A home with completed set-up, and the program that lives in it at the moment.
class Home {
public:
    explicit Home(QString path)
        : m_path(std::move(path))
        , m_settings(m_path + QStringLiteral("/config/org.zelvo.StandUp/StandUp.conf"))
        , m_store(m_path + QStringLiteral("/data/org.zelvo.StandUp/StandUp.storedata"))
    {
        QDir().mkpath(QFileInfo(m_settings).path());
        QDir().mkpath(runtimeFolder());
        QFile::setPermissions(runtimeFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QDir().mkpath(m_path + QStringLiteral("/data"));
    }

    /// @param lacksDefaults the settings hold only what the user chose, so that the program writes the others
    void start(const char* program, double lifeSeconds, bool lacksDefaults)
    {
        if (lacksDefaults || !QFile::exists(m_settings))
            writeSettings();
        m_killAt = now() + lifeSeconds;
        m_process = fork();
        if (m_process == 0)
            execute(program);
    }

    [[nodiscard]] bool isAlive() const { return m_process != 0; }
    [[nodiscard]] bool isTimeUp() const { return now() >= m_killAt; }

    void look()
    {
        for (const auto& [row, period] : savedPeriods(m_store))
            m_seen[row] = period;
    }

    /// Kills the program; true when all is well with what it leaves behind.
    bool killAndCheck()
    {
        look();
        const double killedAt = now();
        kill(m_process, SIGKILL);
        int status = 0;
        waitpid(std::exchange(m_process, 0), &status, 0);
        if (!WIFSIGNALED(status))
            return failed("the program had ended by itself");
        return isStoreWhole(killedAt) && areSettingsWhole();
    }

    [[nodiscard]] size_t seenPeriods() const { return m_seen.size(); }

private:
    [[nodiscard]] QString runtimeFolder() const { return m_path + QStringLiteral("/runtime"); }

    [[noreturn]] void execute(const char* program) const
    {
        const int log = open("/dev/null", O_WRONLY);
        dup2(log, STDERR_FILENO);
        for (const char* const variable : {"DISPLAY", "WAYLAND_DISPLAY"})
            unsetenv(variable);
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
        setenv("HOME", qPrintable(m_path), 1);
        setenv("XDG_CONFIG_HOME", qPrintable(m_path + QStringLiteral("/config")), 1);
        setenv("XDG_DATA_HOME", qPrintable(m_path + QStringLiteral("/data")), 1);
        setenv("XDG_RUNTIME_DIR", qPrintable(runtimeFolder()), 1);
        execl(program, program, "--simulate", nullptr);
        _exit(127);
    }

    void writeSettings() const
    {
        QFile file(m_settings);
        if (!file.open(QIODevice::WriteOnly) || file.write(kSettings) < 0)
            abort();
    }

    bool isStoreWhole(double killedAt)
    {
        if (m_seen.empty() && !QFile::exists(m_store))
            return true;
        Error error;
        if (!PersistentStoreCoordinator::open(m_store, error))
            return failed(qPrintable(error.localizedDescription));
        const Periods kept = savedPeriods(m_store);
        for (const auto& [row, seen] : m_seen) {
            const auto found = kept.find(row);
            if (found == kept.end() || found->second.start != seen.start || found->second.end < seen.end)
                return failed("a period that was saved is lost or older");
        }
        const bool isRecording = m_seen.size() > m_seenBefore;
        m_seenBefore = kept.size();
        if (isRecording && kept.rbegin()->second.end < killedAt - kPulseInterval - kTimerSlack)
            return failed("the open period is too short");
        m_seen = kept;
        return true;
    }

    bool areSettingsWhole() const
    {
        const QSettings settings(m_settings, QSettings::IniFormat);
        const bool areKept = settings.value(QStringLiteral("Weight")).toDouble() == 80
            && settings.value(QStringLiteral("ActivityGoal")).toDouble() == 15
            && settings.value(QStringLiteral("ActivityMode")).toInt() == 2
            && settings.value(QStringLiteral("NumberOfStandUps")).toInt() == 2;
        const QStringList aside = QFileInfo(m_settings).dir().entryList({QStringLiteral("*.damaged-*")});
        return (areKept && aside.isEmpty()) || failed("the settings are damaged");
    }

    bool failed(const char* reason) const
    {
        std::printf("%s: %s\n", qPrintable(m_path), reason);
        return false;
    }

    QString m_path;
    QString m_settings;
    QString m_store;
    pid_t m_process = 0;
    double m_killAt = 0;
    Periods m_seen;
    size_t m_seenBefore = 0;
};

/// Half of them die while they start and write their settings, a quarter about when the first period opens,
/// the rest later.
double randomLife(std::mt19937& random, double longest)
{
    const auto between = [&](double least, double most) {
        return std::uniform_real_distribution<>(least, most)(random);
    };
    switch (random() % 4) {
    case 0:
        return between(2, longest);
    case 1:
        return between(0.5, 2);
    default:
        return between(0, 0.4);
    }
}
}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::printf("usage: program_kill_test PROGRAM [ROUNDS [LONGEST_LIFE_SECONDS]]\n");
        return 2;
    }
    const QCoreApplication application(argc, argv);
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 10;
    const double longest = argc > 3 ? std::atof(argv[3]) : 4;
    const TestPlatform platform;
    std::mt19937 random(std::random_device {}());
    std::vector<std::unique_ptr<Home>> homes;
    for (int i = 0; i < kHomes; ++i)
        homes.push_back(std::make_unique<Home>(platform.folder.filePath(QString::number(i))));

    int started = 0;
    int killed = 0;
    int failures = 0;
    while (killed < rounds) {
        for (const auto& home : homes) {
            if (!home->isAlive() && started < rounds) {
                home->start(argv[1], randomLife(random, longest), random() % 2 == 0);
                ++started;
            } else if (home->isAlive() && home->isTimeUp()) {
                failures += home->killAndCheck() ? 0 : 1;
                ++killed;
            } else if (home->isAlive()) {
                home->look();
            }
        }
        usleep(kPollMicroseconds);
    }
    size_t periods = 0;
    for (const auto& home : homes)
        periods += home->seenPeriods();
    std::printf("%d kills, %zu periods seen saved, %d failures\n", rounds, periods, failures);
    return failures == 0 && rounds > 0 ? 0 : 1;
}
