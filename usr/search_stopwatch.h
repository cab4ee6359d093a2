// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Measures how long a search has been listening, by the system's wall clock.
class Search_stopwatch {
public:
    void start();
    void stop();

    /// From the start to the stop, or to now while it runs, in whole milliseconds.
    [[nodiscard]] double elapsed_milliseconds() const;
    [[nodiscard]] double elapsed_seconds() const;

private:
    qint64 start_time = 0; ///< nanoseconds
    qint64 stop_time = 0;  ///< nanoseconds
    bool running = false;
};
