// SPDX-License-Identifier: MIT

#pragma once

#include "sim/simulated_switch.h"
#include "tests/support/bare_window.h"

/// A Lite window on its own switch whose waits the test ends itself. For tests with hundreds of
/// units.
class Untimed_Window : public Bare_Window {
public:
    Untimed_Window();
    ~Untimed_Window() override;

    /// Reads everything from the switch and applies the report as soon as it is complete.
    [[nodiscard]] bool read_unit();

    /// Waits until the switch has executed and answered everything sent so far.
    [[nodiscard]] bool wait_until_obeyed();

    QWidget& widget(const QString& name) const;

    Simulated_Switch device;
};
