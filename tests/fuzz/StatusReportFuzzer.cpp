#include "desk/StatusReportChecks.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

/// The bytes are one status report, filled up with zeros, as a short answer of the adapter is.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static StatusReportChecks checks;
    StatusReportChecks::Report report {};
    std::copy_n(data, std::min(size, report.size()), report.begin());
    if (const char* violation = checks.violation(report)) {
        std::fprintf(stderr, "%s\n", violation);
        std::abort();
    }
    return 0;
}
