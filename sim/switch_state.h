// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <array>

/// The three models of the switch. They differ here only in audio, which only the Pro has.
enum class Switch_Model { lite, plus, pro };

/// A custom mouse speed: two speeds from 1 to 500 and a name.
struct Custom_Entry {
    int x_speed = 100;
    int y_speed = 100;
    QByteArray name;
};

/// Where the audio of a Pro goes. `channels` counts in the mode `channels` only.
struct Audio_Routing {
    enum class Mode { all, follow, channels };

    Mode mode = Mode::all;
    std::array<bool, 4> channels = {}; ///< channel 1 to 4
};

/// The state of a switch. The initial values are the factory defaults.
struct Switch_State {
    int km_channel = 1;  ///< 1 to 4, holds keyboard and mouse
    int usb_channel = 1; ///< 1 to 4, holds USB
    QByteArray hotkey_trigger = "Left Ctrl";
    bool relative_mouse = false;
    int port_limit = 4; ///< active ports, 2 to 4
    bool cursor_rolling = false;
    int parking_x = 50; ///< 0 to 100
    int parking_y = 50; ///< 0 to 100
    bool buzzer = true;
    std::array<Custom_Entry, 4> custom_entries = {
        {{100, 100, "DESK"}, {100, 100, "WALL"}, {100, 100, "HALL"}, {100, 100, "ROOM"}}};
    std::array<int, 4> resolutions = {1, 1, 1, 1};      ///< 1 to 9 fixed, 10 to 13 custom entries
    std::array<int, 4> layout_positions = {1, 2, 3, 4}; ///< grid cells 1 to 16, row by row
    Audio_Routing audio;
};
