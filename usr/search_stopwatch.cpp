// SPDX-License-Identifier: MIT

#include "usr/search_stopwatch.h"

#include "usr/waiting.h"

void Search_stopwatch::start() {
    start_time = read_wall_clock();
    running = true;
}

void Search_stopwatch::stop() {
    stop_time = read_wall_clock();
    running = false;
}

double Search_stopwatch::elapsed_milliseconds() const {
    constexpr qint64 nanoseconds_per_millisecond = 1'000'000;
    const qint64 end = running ? read_wall_clock() : stop_time;
    const qint64 whole_milliseconds = (end - start_time) / nanoseconds_per_millisecond;
    return static_cast<double>(whole_milliseconds);
}

double Search_stopwatch::elapsed_seconds() const { return elapsed_milliseconds() / 1000.0; }
