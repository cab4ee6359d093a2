// SPDX-License-Identifier: MIT

#pragma once

/// The lines of a settings file that are applied, by the number that the loader passes.
enum class Setting_Index : int {
    km_control = 0,
    usb_control = 1,
    mouse_mode = 2,
    limit_ports = 3,
    cursor_rolling = 4,
    mouse_parking = 5,
    custom_setting_1 = 6,
    custom_setting_2 = 7,
    custom_setting_3 = 8,
    custom_setting_4 = 9,
    resolution_1 = 10,
    resolution_2 = 11,
    resolution_3 = 12,
    resolution_4 = 13,
    /// The command goes to the switch; the tiles follow the four coordinates lines.
    grid = 14,
    buzzer = 15,
    audio_command = 16,
    audio_state = 17,
    custom_label_1 = 18,
    custom_label_2 = 19,
    custom_label_3 = 20,
    custom_label_4 = 21,
};
