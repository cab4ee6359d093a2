// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/window_fixture.h"

#include <QByteArray>

#include <functional>

/// How many of a long run's steps are done: all of them under `./test --all`, which sets
/// HALVERN_LONG_RUNS, else a fifth. Under AddressSanitizer a tenth: each step takes ten times as
/// long, and a leak is found at any number.
[[nodiscard]] int length_of_run(int all_steps);

/// Uses a window over and over in virtual time, and checks that nothing opened or created meanwhile
/// is left over except the text shown. Prints the figures.
class Soak {
public:
    /// Uses the window once, and returns when everything has finished.
    /// @return whether it worked.
    using Step = std::function<bool(int number)>;

    /// @param window has been opened.
    /// @param forget clears the test's own record of the traffic.
    /// @param why returns the reason of a failed step.
    Soak(const Window_Fixture& window, std::function<void()> forget,
         std::function<QByteArray()> why);

    /// Does a tenth of the steps for everything that is created once, counts, does the steps,
    /// counts again, and fails the running test if anything has grown by more than the text shown.
    /// @param kept_by_qt what may stay on the heap.
    /// @return how much has stayed on the heap.
    qint64 repeat(const char* what, int count, const Step& step, qint64 kept_by_qt = 0);

    /// How many characters the terminal has shown, including those that repeat() has cleared.
    [[nodiscard]] qint64 shown() const;

private:
    void take_steps(int count, const Step& step);
    /// Waits until every timer has fired.
    void come_to_rest();
    void clear_terminal();

    const Window_Fixture& window;
    std::function<void()> forget;
    std::function<QByteArray()> why;
    qint64 shown_before = 0; ///< what has been cleared
};
