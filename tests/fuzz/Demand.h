#pragma once

#include <cstdio>
#include <cstdlib>

/// What must hold for any input; the fuzzer keeps the input that breaks it.
inline void demand(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}
