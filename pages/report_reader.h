#pragma once

#include "link/session_state.h"
#include "pages/configuration_page.h"
#include "pages/layout_page.h"
#include "pages/mouse_speed_page.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Writes the switch's reports and notices into the pages.
class Report_Reader {
public:
    Report_Reader(Session_State& link_state, Configuration_Page& configuration_page,
                  Mouse_Speed_Page& mouse_speed_page, Layout_Page& layout_page);

    /// Hotkey, channels and parking from info_buff; nothing from an empty one.
    void apply_information_report();
    /// Everything else but the layout from status_buff, in a fixed order; nothing from an empty
    /// one. Leaves ui_changes_enabled down.
    /// @throws std::exception at the first required value that is missing or no number.
    void apply_status_report();

    /// Notices of a channel change. Each sets the channel boxes without an echo to the switch and
    /// asks for the buffer to be emptied.
    /// @return the value of the notice, if there is one.
    std::optional<std::string> parse_both_notice(const std::string& text);
    /// Passed over if a "**CE" answer stands anywhere in the text.
    void parse_km_notice(const std::string& text);
    void parse_usb_notice(const std::string& text);

private:
    using Channel_Setter = std::function<void(const std::string& channel)>;
    /// When both keys have a value, the second one wins.
    void parse_channel_notice(const std::array<std::string_view, 2>& keys, const std::string& text,
                              const Channel_Setter& set_channel);

    Session_State& state;
    Configuration_Page& configuration;
    Mouse_Speed_Page& mouse_speed;
    Layout_Page& layout;
};
