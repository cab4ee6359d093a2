// SPDX-License-Identifier: MIT

#pragma once

#include "pages/pages.h"

#include <array>
#include <string>
#include <string_view>

class Switch_Session;

/// Writes the switch's reports and notices into the pages.
class Report_Reader {
public:
    Report_Reader(Switch_Session& switch_session, const Pages& all_pages);

    /// Hotkey, channels and parking from info_buff; nothing from an empty one.
    void apply_information_report();
    /// Everything else but the layout from status_buff, in a fixed order; nothing from an empty
    /// one. Leaves ui_changes_enabled false.
    /// @throws std::exception at the first required value that is missing or not a number.
    void apply_status_report();

    /// Notices of a channel change. Each sets the channel boxes without sending to the switch and
    /// requests that the buffer is cleared; the first one also sets the audio panel.
    void parse_both_notice(const std::string& text);
    /// Ignored if a "**CE" answer is anywhere in the text.
    void parse_km_notice(const std::string& text);
    void parse_usb_notice(const std::string& text);

    /// An audio state; nothing on a model without audio.
    void apply_audio_reply(const std::string& text);

private:
    /// If both keys have a value, the second one is used.
    template <class Channel_Setter>
    void parse_channel_notice(const std::array<std::string_view, 2>& keys, const std::string& text,
                              const Channel_Setter& set_channel);

    Switch_Session& session;
    Pages pages;
};
