// Preloaded into the program under test: bends its clocks as a file in memory says, which the scenario
// writes. The wall clock can be set, the machine can seem to have slept, and all time can run faster;
// waits end accordingly. A sleep moves the wall clock and the boot-time clock and leaves the monotonic one.

#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <stdint.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/time.h>
#include <time.h>

struct Bend {
    uint64_t turn; // Odd while the scenario writes.
    double origin, virtualOrigin; // Monotonic seconds at the last change of the rate.
    double rate;
    double until; // At this monotonic time the rate becomes 1.
    double wallAhead; // What the wall clock was set by.
    double slept;
};

static struct Bend now = {0, 0, 0, 1, 0, 0, 0};
static const struct Bend* bend = &now;

__attribute__((constructor)) static void begin(void)
{
    const char* path = getenv("BENT_CLOCK");
    const int file = path ? open(path, O_RDONLY | O_CLOEXEC) : -1;
    void* shared = file < 0 ? MAP_FAILED : mmap(0, sizeof now, PROT_READ, MAP_SHARED, file, 0);
    if (shared != MAP_FAILED)
        bend = shared;
}

static struct Bend current(void)
{
    for (;;) {
        const uint64_t turn = __atomic_load_n(&bend->turn, __ATOMIC_ACQUIRE);
        const struct Bend copy = *bend;
        __atomic_thread_fence(__ATOMIC_ACQUIRE); // So that each turn of this loop reads it anew.
        if (turn % 2 == 0 && turn == __atomic_load_n(&bend->turn, __ATOMIC_RELAXED))
            return copy;
    }
}

static int realTime(clockid_t clock, struct timespec* time)
{
    static int (*next)(clockid_t, struct timespec*);
    if (!next)
        next = dlsym(RTLD_NEXT, "clock_gettime");
    return next(clock, time);
}

static double seconds(struct timespec time)
{
    return (double)time.tv_sec + (double)time.tv_nsec * 1e-9;
}

static struct timespec asTimespec(double seconds)
{
    const time_t whole = (time_t)seconds;
    return (struct timespec) {whole, (long)((seconds - (double)whole) * 1e9)};
}

static double monotonic(void)
{
    struct timespec time;
    realTime(CLOCK_MONOTONIC, &time);
    return seconds(time);
}

static double bent(struct Bend b, double real)
{
    const double fast = b.virtualOrigin + (real - b.origin) * b.rate;
    return fast <= b.until ? fast : b.until + (fast - b.until) / b.rate;
}

int clock_gettime(clockid_t clock, struct timespec* time)
{
    const int result = realTime(clock, time);
    if (result != 0 || clock == CLOCK_PROCESS_CPUTIME_ID || clock == CLOCK_THREAD_CPUTIME_ID)
        return result;
    const struct Bend b = current();
    const double real = monotonic(), gained = bent(b, real) - real;
    const int isWall = clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
    const double slept = isWall || clock == CLOCK_BOOTTIME ? b.slept : 0;
    *time = asTimespec(seconds(*time) + gained + slept + (isWall ? b.wallAhead : 0));
    return 0;
}

int gettimeofday(struct timeval* restrict time, void* restrict zone)
{
    (void)zone;
    struct timespec t;
    clock_gettime(CLOCK_REALTIME, &t);
    *time = (struct timeval) {t.tv_sec, t.tv_nsec / 1000};
    return 0;
}

time_t time(time_t* result)
{
    struct timespec t;
    clock_gettime(CLOCK_REALTIME, &t);
    return result ? (*result = t.tv_sec) : t.tv_sec;
}

// The rate may change while somebody waits, so a wait goes in slices of real time until the bent clock says
// that it is over.
static const double slice = 0.02;

static double bentMonotonic(void)
{
    struct timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return seconds(time);
}

static double realShare(double left)
{
    const struct Bend b = current();
    const double real = left <= 0 ? 0 : bent(b, monotonic()) < b.until ? left / b.rate : left;
    return real < slice ? real : slice;
}

int ppoll(struct pollfd* files, nfds_t count, const struct timespec* timeout, const sigset_t* mask)
{
    static int (*next)(struct pollfd*, nfds_t, const struct timespec*, const sigset_t*);
    if (!next)
        next = dlsym(RTLD_NEXT, "ppoll");
    if (!timeout)
        return next(files, count, 0, mask);
    const double end = bentMonotonic() + seconds(*timeout);
    for (;;) {
        const double left = end - bentMonotonic();
        const struct timespec part = asTimespec(realShare(left));
        const int result = next(files, count, &part, mask);
        if (result != 0 || left <= 0)
            return result;
    }
}

int poll(struct pollfd* files, nfds_t count, int milliseconds)
{
    const struct timespec timeout = asTimespec(milliseconds * 1e-3);
    return ppoll(files, count, milliseconds < 0 ? 0 : &timeout, 0);
}

int pthread_cond_clockwait(
    pthread_cond_t* condition, pthread_mutex_t* mutex, clockid_t clock, const struct timespec* end)
{
    static int (*next)(pthread_cond_t*, pthread_mutex_t*, clockid_t, const struct timespec*);
    if (!next)
        next = dlsym(RTLD_NEXT, "pthread_cond_clockwait");
    for (;;) {
        struct timespec bent;
        clock_gettime(clock, &bent);
        const double left = seconds(*end) - seconds(bent);
        const struct timespec real = asTimespec(monotonic() + realShare(left));
        const int result = next(condition, mutex, CLOCK_MONOTONIC, &real);
        if (result != ETIMEDOUT || left <= 0)
            return result;
    }
}
