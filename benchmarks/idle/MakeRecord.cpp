// make-record FILE PERIODS: makes a store with a working life in it.

#include "benchmarks/WorkingLife.h"
#include "data/PersistentStoreCoordinator.h"
#include "platform/simulated/SimulatedDesktop.h"

#include <cstdio>
#include <ctime>

int main(int argc, char** argv)
{
    if (argc != 3) {
        fprintf(stderr, "usage: make-record FILE PERIODS\n");
        return 2;
    }
    const SimulatedDesktop desktop(double(std::time(nullptr)), {});
    Error error;
    const std::shared_ptr<PersistentStoreCoordinator> store =
        PersistentStoreCoordinator::open({}, QString::fromLocal8Bit(argv[1]), error);
    if (!store || !fillWithWorkingLife(store, workingLifeUntil(Date::now()), atoll(argv[2]), error)) {
        fprintf(stderr, "make-record: %s\n", qPrintable(error.localizedDescription));
        return 1;
    }
    return 0;
}
