// SPDX-License-Identifier: MIT

#pragma once

/// The order in which the readers look through a chunk from the network.
enum class Notice_Order { layout_first, both_first };

/// The rows of the table of model differences that the session reads.
struct Session_Traits {
    /// An audio panel, "//QA" at every start and refresh, and a search for audio states in replies.
    bool has_audio;
    /// Closing a link's device disables the controls. Else OFF does, if a switch had answered.
    bool controls_fall_with_device;
    /// A device that cannot be closed is reported, as "Close serial error" or "Close socket error".
    bool reports_failed_closing;
    /// Opening a serial port clears the terminal first.
    bool clears_terminal_on_port_open;
    /// A model without a network link does not use it.
    Notice_Order network_notice_order = Notice_Order::layout_first;
};
