// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_robot.h"
#include "tests/support/window_fixture.h"

#include <chrono>

/// How long the waits of a main window are, measured in virtual time, whatever its model and link.
/// The pages are filled before.
class Window_Waits {
public:
    explicit Window_Waits(Window_Fixture& opened_window) : window(opened_window) {}

    /// From now, when a chunk is shown, to the second scroll of the terminal.
    std::chrono::milliseconds second_scroll();

    /// From the click on Refresh to the button's second disabling, and to its enabling. The unit
    /// must not answer, because its answer enables the button too.
    struct Lock_Out {
        std::chrono::milliseconds disabled;
        std::chrono::milliseconds enabled;
    };
    Lock_Out refresh_lock_out();

    /// From the click on Submit of a custom entry to the refresh, which removes the custom names.
    std::chrono::milliseconds custom_entry();

    /// From the confirmation of a factory reset to the refresh.
    std::chrono::milliseconds factory_reset(Modal_Robot& robot);

private:
    [[nodiscard]] QString custom(const QString& name) const;

    Window_Fixture& window;
};
