#pragma once

#include "link/reply_dispatcher.h"

#include <string_view>

/// Where the mouse mode command and the settings file take the mode from.
enum class Mouse_Mode_Source {
    /// comboBox_KM_Control: "//ks" while it shows channel 1. The Lite does so, whatever was picked.
    km_control,
    /// comboBox_Select_Display_Mode: what was picked.
    display_mode
};

/// Everything in which the three models differ, one row a difference. Common code reads this table
/// and never asks which model it serves.
struct Model_Traits {
    /// The settings file of the model "pro" carries the audio lines.
    std::string_view tag;
    /// An audio panel, "//QA" at every start and refresh, and a search for audio states in replies.
    bool has_audio;
    /// A network link beside the serial one, and the wizard that leads to either.
    bool has_network;
    /// Closing a link's device disables the controls. Else OFF does, if a switch had answered.
    bool controls_fall_with_device;
    /// A device that can't be closed is told of, as "Close serial error" or "Close socket error".
    bool reports_failed_closing;
    Mouse_Mode_Source mouse_mode_source;
    Notice_Order network_notice_order;
    /// Opening a serial port empties the terminal first.
    bool clears_terminal_on_port_open;
    /// Reading a confirmed layout back ends with dragging disarmed.
    bool disarms_drag_after_read_back;
    /// Each comparison in the look-up of a channel's coordinates leaves a log line.
    bool logs_coordinate_lookup;
    /// A grid position that is no number is told to standard output, and the first cell stands in.
    bool forgives_bad_grid_position;
    /// The timer of a load's second part starts also when the file dialog was cancelled; without a
    /// file it does nothing, with one chosen meanwhile the second part comes early.
    bool arms_second_part_after_cancel;
    /// The highest Setting_Index whose value is also sent to the switch during a load.
    int highest_sent_setting;
};

inline constexpr Model_Traits lite_model{
    .tag = "lite",
    .has_audio = false,
    .has_network = false,
    .controls_fall_with_device = false,
    .reports_failed_closing = false,
    .mouse_mode_source = Mouse_Mode_Source::km_control,
    .network_notice_order = Notice_Order::layout_first,
    .clears_terminal_on_port_open = false,
    .disarms_drag_after_read_back = true,
    .logs_coordinate_lookup = true,
    .forgives_bad_grid_position = false,
    .arms_second_part_after_cancel = false,
    .highest_sent_setting = 17,
};

inline constexpr Model_Traits plus_model{
    .tag = "plus",
    .has_audio = false,
    .has_network = true,
    .controls_fall_with_device = true,
    .reports_failed_closing = true,
    .mouse_mode_source = Mouse_Mode_Source::display_mode,
    .network_notice_order = Notice_Order::layout_first,
    .clears_terminal_on_port_open = false,
    .disarms_drag_after_read_back = false,
    .logs_coordinate_lookup = false,
    .forgives_bad_grid_position = true,
    .arms_second_part_after_cancel = true,
    .highest_sent_setting = 17,
};

inline constexpr Model_Traits pro_model{
    .tag = "pro",
    .has_audio = true,
    .has_network = true,
    .controls_fall_with_device = true,
    .reports_failed_closing = true,
    .mouse_mode_source = Mouse_Mode_Source::display_mode,
    .network_notice_order = Notice_Order::both_first,
    .clears_terminal_on_port_open = true,
    .disarms_drag_after_read_back = false,
    .logs_coordinate_lookup = false,
    .forgives_bad_grid_position = false,
    .arms_second_part_after_cancel = true,
    .highest_sent_setting = 16,
};
