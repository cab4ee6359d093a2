#include "tests/trust/own_clock.h"

#include <atomic>
#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr long nanoseconds_in_a_second = 1'000'000'000;

std::atomic<long> leaped_nanoseconds = 0;

} // namespace

// Stands before the C library's own, for Qt's shared libraries as well.
extern "C" int clock_gettime(clockid_t clock, struct timespec* time) noexcept {
    const long result = syscall(SYS_clock_gettime, clock, time);
    // The main thread's alone: Qt Test watches it from another, by real time.
    thread_local const bool is_main_thread = syscall(SYS_gettid) == getpid();
    if (result == 0 && clock == CLOCK_MONOTONIC && is_main_thread) {
        const long leaped = leaped_nanoseconds.load();
        time->tv_sec += leaped / nanoseconds_in_a_second;
        time->tv_nsec += leaped % nanoseconds_in_a_second;
        if (time->tv_nsec >= nanoseconds_in_a_second) {
            time->tv_nsec -= nanoseconds_in_a_second;
            ++time->tv_sec;
        }
    }
    return static_cast<int>(result);
}

void own_clock::leap(std::chrono::milliseconds time) {
    leaped_nanoseconds += std::chrono::nanoseconds(time).count();
}
