// SPDX-License-Identifier: MIT

#pragma once

#include "sim/switch_state.h"

/// A unit that differs from a new one in all but the buzzer, the custom entries and the layout.
inline Switch_State another_state() {
    Switch_State state;
    state.km_channel = 3;
    state.usb_channel = 4;
    state.hotkey_trigger = "Scroll Lock";
    state.relative_mouse = true;
    state.port_limit = 3;
    state.cursor_rolling = true;
    state.parking_x = 12;
    state.parking_y = 34;
    state.buzzer = true;
    state.resolutions = {2, 9, 10, 13};
    return state;
}
