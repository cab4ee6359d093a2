// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>

/// The clock that the main thread sees in programs linked with the tests' support, with all timers
/// of Qt on it. It is the machine's own, unless a Virtual_Time exists: then it stops while the
/// program works, however long that takes on a busy machine, and when the program would wait for a
/// timer, it jumps to that timer's end. So a wait takes no real time and keeps its exact length.
///
/// What the program sends to itself, through a pseudo-terminal or over the loopback, arrives before
/// the clock jumps. What comes from another process or thread does not: such tests need Real_Time.
namespace virtual_time {

/// The monotonic clock of the main thread.
[[nodiscard]] std::chrono::nanoseconds now();

/// Processes events until exactly this much time has passed. What becomes due at its end is done.
void pass(std::chrono::milliseconds time);

/// Waits until all datagrams that this process has sent over the loopback have arrived.
void let_datagrams_arrive();

/// Advances the clock without processing events. Timers that have become due fire with the next
/// events.
void leap(std::chrono::milliseconds time);

/// Processes events until the condition holds, which is checked after each round, but not for ever.
/// @return how long that took; the longest time, if the condition doesn't hold.
[[nodiscard]] std::chrono::milliseconds
time_until(const std::function<bool()>& condition,
           std::chrono::milliseconds longest = std::chrono::seconds(30));

} // namespace virtual_time

/// While one exists, time is virtual.
class Virtual_Time {
public:
    Virtual_Time();
    ~Virtual_Time();
    Virtual_Time(const Virtual_Time&) = delete;
    Virtual_Time& operator=(const Virtual_Time&) = delete;
};

/// While one exists, time is the machine's, even if a Virtual_Time exists: for what other processes
/// do.
class Real_Time {
public:
    Real_Time();
    ~Real_Time();
    Real_Time(const Real_Time&) = delete;
    Real_Time& operator=(const Real_Time&) = delete;
};
