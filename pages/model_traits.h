// SPDX-License-Identifier: MIT

#pragma once

#include "link/session_traits.h"

/// Where the mouse mode command and the settings file take the mode from.
enum class Mouse_Mode_Source {
    /// comboBox_KM_Control: "//ks" while it shows channel 1. The Lite always does so.
    km_control,
    /// comboBox_Select_Display_Mode: the selected mode.
    display_mode
};

/// All differences between the three models, one row for each. Common code reads this table and
/// never checks which model it runs for.
struct Model_Traits {
    /// What the session reads. A model with audio also has audio lines in its settings file.
    Session_Traits session;
    Mouse_Mode_Source mouse_mode_source;
    /// Reading a confirmed layout back ends with dragging disarmed.
    bool disarms_drag_after_read_back;
    /// Each comparison in the look-up of a channel's coordinates leaves a log line.
    bool logs_coordinate_lookup;
    /// A grid position that is no number goes to standard output, and the first cell is taken.
    bool forgives_bad_grid_position;
    /// The timer of a load's second part also starts when the file dialog was cancelled. Without a
    /// file it does nothing; if a file is chosen meanwhile, the second part runs too early.
    bool arms_second_part_after_cancel;
};

inline constexpr Model_Traits lite_model{
    .session =
        {
            .has_audio = false,
            .controls_fall_with_device = false,
            .reports_failed_closing = false,
            .clears_terminal_on_port_open = false,
        },
    .mouse_mode_source = Mouse_Mode_Source::km_control,
    .disarms_drag_after_read_back = true,
    .logs_coordinate_lookup = true,
    .forgives_bad_grid_position = false,
    .arms_second_part_after_cancel = false,
};

inline constexpr Model_Traits plus_model{
    .session =
        {
            .has_audio = false,
            .controls_fall_with_device = true,
            .reports_failed_closing = true,
            .clears_terminal_on_port_open = false,
            .network_notice_order = Notice_Order::layout_first,
        },
    .mouse_mode_source = Mouse_Mode_Source::display_mode,
    .disarms_drag_after_read_back = false,
    .logs_coordinate_lookup = false,
    .forgives_bad_grid_position = true,
    .arms_second_part_after_cancel = true,
};

inline constexpr Model_Traits pro_model{
    .session =
        {
            .has_audio = true,
            .controls_fall_with_device = true,
            .reports_failed_closing = true,
            .clears_terminal_on_port_open = true,
            .network_notice_order = Notice_Order::both_first,
        },
    .mouse_mode_source = Mouse_Mode_Source::display_mode,
    .disarms_drag_after_read_back = false,
    .logs_coordinate_lookup = false,
    .forgives_bad_grid_position = false,
    .arms_second_part_after_cancel = true,
};
