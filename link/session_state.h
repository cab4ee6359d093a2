// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

/// The state of the communication with the switch: reply text and flags, owned by the session and
/// shared by everything that reads or writes the link.
struct Session_State {
    /// All reply text since the last clearing.
    QString received_buff;
    /// Text of the information report that is applied next.
    std::string info_buff;
    /// Text of the status report; until that comes, the first chunk of a connection.
    std::string status_buff;
    /// Text of the layout report.
    std::string layout_buff;

    /// writeCommand sends only while this is true. Loading a settings file clears it.
    bool write_enabled = false;
    /// A change of a widget came from the user and is to be sent. False while the program itself
    /// changes widgets.
    bool ui_changes_enabled = false;
    /// The next click on Refresh asks the switch.
    bool refresh_enabled = true;
    /// The next chunk begins the information report.
    bool info_report_pending = false;
    /// "//BP" is unanswered.
    bool layout_report_pending = false;
    /// A reply with the connected marker has been seen.
    bool km_connected = false;
    /// The switch has confirmed a new layout.
    bool layout_saved_pending = false;
    /// received_buff is to be cleared when no report is being received.
    bool buff_clear_pending = false;
    /// The buffer belongs to a report; a notice must not clear it.
    bool report_in_progress = false;
};
