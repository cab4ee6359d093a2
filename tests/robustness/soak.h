// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/window_fixture.h"

#include <QByteArray>

#include <functional>

/// How many of a long run's steps are taken: all of them under `./test --all`, which sets
/// HALVERN_LONG_RUNS, else a fifth. Under the address sanitizer each step takes ten times as long
/// and a leak is seen at any number: a tenth.
[[nodiscard]] int length_of_run(int all_steps);

/// Uses a window over and over in virtual time, and demands that nothing which is opened
/// or made on the way is left behind but the text shown. The figures are printed.
class Soak {
public:
    /// Uses the window once, and is back when all has come to its end.
    /// @return whether it went as it should.
    using Step = std::function<bool(int number)>;

    /// @param window has been opened.
    /// @param forget drops what the test's side has recorded of the traffic.
    /// @param why tells of a failed step.
    Soak(const Window_Fixture& window, std::function<void()> forget,
         std::function<QByteArray()> why);

    /// Takes a tenth of the steps for everything that is made once, counts, takes the steps, counts
    /// again, and fails the running test if anything has grown but by the text shown.
    /// @param kept_by_qt what may stay on the heap.
    /// @return how much has stayed there.
    qint64 repeat(const char* what, int count, const Step& step, qint64 kept_by_qt = 0);

    /// How many characters the terminal has shown, those included that repeat() has cleared.
    [[nodiscard]] qint64 shown() const;

private:
    void take_steps(int count, const Step& step);
    /// Lets every timer run out.
    void come_to_rest();
    void clear_terminal();

    const Window_Fixture& window;
    std::function<void()> forget;
    std::function<QByteArray()> why;
    qint64 shown_before = 0; ///< what has been cleared
};
