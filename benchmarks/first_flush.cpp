// SPDX-License-Identifier: MIT

// To be preloaded, with flush_hook.cpp, into an unmodified program: writes the time at which
// painted content is first sent to the screen into the pipe of measure_start.cpp.

#include "benchmarks/flush_hook.h"

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <unistd.h>

namespace {

void tell_time_once(void* /*window*/) {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    flush_observer = nullptr;
    const std::int64_t now = time.tv_sec * 1'000'000'000 + time.tv_nsec;
    const char* const pipe = std::getenv("HALVERN_BENCH_PIPE");
    if (pipe == nullptr || write(std::atoi(pipe), &now, sizeof now) != sizeof now) {
        std::abort();
    }
}

__attribute__((constructor)) void watch() { flush_observer = tell_time_once; }

} // namespace
