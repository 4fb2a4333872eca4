// The program's work at rest, done in the barest way: a tray icon in as many sizes, the idle time asked of
// the X server every 10 s, the end of a period saved every 15 s, a line with the time written about each into
// a log file beside the store, the desk asked once a second, and a new tool tip each minute:
//   equal-work STORE [NODE]
// A thread reads the status of the adapter at the node. Without one the desk is simulated, as the program's
// is.

#include "data/ManagedObjectModel.h"
#include "simulator/DeskModel.h"

#include <QApplication>
#include <QPixmap>
#include <QSocketNotifier>
#include <QSystemTrayIcon>
#include <QTimer>

#include <array>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <linux/hidraw.h>
#include <memory>
#include <mutex>
#include <sqlite3.h>
#include <sys/ioctl.h>
#include <thread>
#include <unistd.h>
#include <xcb/screensaver.h>
#include <xcb/xcbext.h>

namespace {
void log(const char* text, double value)
{
    timespec now {};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local {};
    localtime_r(&now.tv_sec, &local);
    char moment[64];
    strftime(moment, sizeof moment, "%Y-%m-%d %H:%M:%S", &local);
    fprintf(stderr, "%s.%03ld EqualWork[%d] %s %f\n", moment, now.tv_nsec / 1000000, getpid(), text, value);
    fflush(stderr);
}

QIcon makeIcon()
{
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::darkCyan);
        icon.addPixmap(pixmap);
    }
    return icon;
}

class IdleQuestion {
public:
    IdleQuestion()
        : m_answers(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read)
    {
        QObject::connect(&m_answers, &QSocketNotifier::activated, &m_answers, [this] { read(); });
    }
    ~IdleQuestion() { xcb_disconnect(m_connection); }
    Q_DISABLE_COPY_MOVE(IdleQuestion)

    void ask()
    {
        m_question = xcb_screensaver_query_info(m_connection, m_root).sequence;
        xcb_flush(m_connection);
    }

private:
    void read()
    {
        while (xcb_generic_event_t* const event = xcb_poll_for_event(m_connection))
            free(event);
        void* reply = nullptr;
        if (m_question == 0 || xcb_poll_for_reply(m_connection, m_question, &reply, nullptr) == 0 || !reply)
            return;
        m_question = 0;
        log("idle", static_cast<xcb_screensaver_query_info_reply_t*>(reply)->ms_since_user_input / 1000.0);
        free(reply);
    }

    xcb_connection_t* m_connection = xcb_connect(nullptr, nullptr);
    xcb_window_t m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    QSocketNotifier m_answers;
    unsigned m_question = 0;
};

class Record {
public:
    explicit Record(const char* path)
    {
        sqlite3_open(path, &m_connection);
        for (const char* const sql :
            {"PRAGMA synchronous = FULL", "PRAGMA journal_mode = WAL", ManagedObjectModel().statements})
            sqlite3_exec(m_connection, sql, nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(m_connection,
            "INSERT OR REPLACE INTO Activity(id, startDate, endDate, isStanding, weight) "
            "VALUES(1000000000, ?1, ?2, 1, 80)",
            -1, &m_write, nullptr);
    }
    ~Record()
    {
        sqlite3_finalize(m_write);
        sqlite3_close(m_connection);
    }
    Q_DISABLE_COPY_MOVE(Record)

    void save()
    {
        sqlite3_bind_double(m_write, 1, m_start);
        sqlite3_bind_double(m_write, 2, double(std::time(nullptr)));
        sqlite3_step(m_write);
        sqlite3_reset(m_write);
        log("saved", m_start);
    }

private:
    double m_start = double(std::time(nullptr));
    sqlite3* m_connection = nullptr;
    sqlite3_stmt* m_write = nullptr;
};

class Reader {
public:
    explicit Reader(const char* node)
        : m_node(open(node, O_RDWR | O_CLOEXEC))
        , m_thread([this] { run(); })
    {
    }
    ~Reader()
    {
        m_isEnding = true;
        wake();
        m_thread.join();
        close(m_node);
    }
    Q_DISABLE_COPY_MOVE(Reader)

    void wake()
    {
        const std::lock_guard lock(m_mutex);
        m_isAsked = true;
        m_asked.notify_one();
    }

private:
    void run()
    {
        std::unique_lock lock(m_mutex);
        while (true) {
            m_asked.wait(lock, [this] { return m_isAsked; });
            if (m_isEnding)
                return;
            m_isAsked = false;
            lock.unlock();
            unsigned char status[64] = {4};
            ioctl(m_node, HIDIOCGFEATURE(sizeof status), status);
            const int height = status[4] | status[5] << 8;
            QMetaObject::invokeMethod(
                qApp, [this, height] { m_height = height; }, Qt::QueuedConnection);
            lock.lock();
        }
    }

    int m_node;
    int m_height = 0;
    std::mutex m_mutex;
    std::condition_variable m_asked;
    bool m_isAsked = false;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

class SimulatedDesk {
public:
    void read()
    {
        m_desk.advance(1);
        std::array<uint8_t, DeskModel::kStatusReportLength> status {4};
        if (m_desk.getFeatureReport(status) == TransferResult::Ok)
            m_height = status[4] | status[5] << 8;
    }

private:
    DeskModel m_desk;
    int m_height = 0;
};

void every(int milliseconds, std::function<void()> work)
{
    auto* const timer = new QTimer(qApp);
    timer->setTimerType(Qt::VeryCoarseTimer); // All on full seconds, where the program's own meet.
    timer->callOnTimeout(std::move(work));
    timer->start(milliseconds);
}
}

int main(int argc, char** argv)
{
    if (argc < 2) {
        fprintf(stderr, "usage: equal-work STORE [NODE]\n");
        return 2;
    }
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);

    QSystemTrayIcon icon(makeIcon());
    icon.show();

    const QByteArray logFile = QByteArray(argv[1]) + ".log";
    if (!freopen(logFile.constData(), "a", stderr))
        return 1;

    IdleQuestion idle;
    Record record(argv[1]);
    const auto reader = argc > 2 ? std::make_unique<Reader>(argv[2]) : nullptr;
    SimulatedDesk desk;
    every(1000, [&] {
        if (reader)
            reader->wake();
        else
            desk.read();
    });
    every(10'000, [&idle] { idle.ask(); });
    every(15'000, [&record] { record.save(); });
    // As the program begins; the first of each costs more and belongs to no minute.
    QTimer::singleShot(1000, [&] {
        idle.ask();
        record.save();
    });
    int minutes = 60;
    every(60'000, [&] { icon.setToolTip(QStringLiteral("Sitting, 72 cm, %1 minutes").arg(--minutes)); });
    return QApplication::exec();
}
