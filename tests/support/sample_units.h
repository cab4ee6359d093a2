// SPDX-License-Identifier: MIT

#pragma once

#include "sim/switch_state.h"

/// A unit after long use: every setting except the buzzer differs from a new unit's, and every
/// setting from the form's initial content. A test that needs another unit changes only the
/// settings that matter to it.
inline Switch_State used_unit() {
    Switch_State state;
    state.km_channel = 3;
    state.usb_channel = 2;
    state.hotkey_trigger = "Scroll Lock";
    state.relative_mouse = true;
    state.port_limit = 3;
    state.cursor_rolling = true;
    state.parking_x = 12;
    state.parking_y = 34;
    state.custom_entries = {
        {{110, 120, "BANK"}, {210, 220, "TREE"}, {310, 320, "LAMP"}, {410, 420, "SOFA"}}};
    state.resolutions = {2, 10, 13, 9};
    state.layout_positions = {5, 6, 7, 11};
    state.audio.mode = Audio_Routing::Mode::channels;
    state.audio.channels = {true, false, true, false};
    return state;
}

/// The unit whose settings file docs/settings-file.md shows.
inline Switch_State documented_unit() {
    Switch_State state;
    state.km_channel = 2;
    state.relative_mouse = true;
    state.cursor_rolling = true;
    state.custom_entries = {
        {{150, 300, "DESK"}, {100, 100, "WALL"}, {200, 200, "HALL"}, {500, 500, "ROOM"}}};
    state.resolutions = {1, 4, 10, 7};
    state.layout_positions = {1, 2, 5, 6};
    state.audio = {Audio_Routing::Mode::channels, {true, false, true, false}};
    return state;
}

/// That file, without the lines that only a Pro writes.
inline constexpr char documented_lines[] = "KM Control: //c2\n"
                                           "USB Control: //u1\n"
                                           "Limit Ports: //D4\n"
                                           "Cursor Rolling: //o1\n"
                                           "Mouse Parking: //MP 50 50\n"
                                           "Resolution channel 1: //CE 1 1\n"
                                           "Resolution channel 2: //CE 2 4\n"
                                           "Resolution channel 3: //CE 3 10\n"
                                           "Resolution channel 4: //CE 4 7\n"
                                           "Custom mouse movement setting 1: //MM C1 150 300 DESK\n"
                                           "Custom mouse movement setting 2: //MM C2 100 100 WALL\n"
                                           "Custom mouse movement setting 3: //MM C3 200 200 HALL\n"
                                           "Custom mouse movement setting 4: //MM C4 500 500 ROOM\n"
                                           "Data from mouse movement label 1: 150 300 DESK\n"
                                           "Data from mouse movement label 2: 100 100 WALL\n"
                                           "Data from mouse movement label 3: 200 200 HALL\n"
                                           "Data from mouse movement label 4: 500 500 ROOM\n"
                                           "Grid settings: //FF01B01FF02B02FF03B05FF04B06\n"
                                           "Coordinates channel 1: 0 0\n"
                                           "Coordinates channel 2: 0 1\n"
                                           "Coordinates channel 3: 1 0\n"
                                           "Coordinates channel 4: 1 1\n"
                                           "Buzzer: //B1\n"
                                           "Mouse Mode: //km\n";

inline constexpr char documented_audio_lines[] = "Audio settings: //a 1 3\n"
                                                 "Audio chacked state: 13\n";
