// SPDX-License-Identifier: MIT

#pragma once

#include "pages/page_widgets.h"

#include <QString>

#include <string>

class Layout_Page;
class Switch_Session;
struct Model_Traits;

/// The first page: general and USB settings, each sent when it changes. The widgets hold the unit's
/// settings; nothing else stores them.
class Configuration_Page {
public:
    Configuration_Page(const Configuration_Widgets& page_widgets, Switch_Session& switch_session,
                       Layout_Page& layout_page, const Model_Traits& model_traits);

    // The user's changes. Those of the combo boxes are sent only while ui_changes_enabled.
    void km_control_changed();
    void usb_control_changed();
    void mouse_mode_changed();
    void active_ports_changed();
    void cursor_roll_changed();
    void parking_x_edited();
    void parking_y_edited();
    /// Sends the two fields unchanged, whatever the result of the range check.
    void apply_mouse_parking();
    /// Asks first; then asks the switch for everything once it has had time to reset.
    void factory_reset();
    void soft_reset();
    void beep_on();
    void beep_off();

    // The commands that would bring a switch to what the page shows.
    [[nodiscard]] QString get_km_control_command() const;
    [[nodiscard]] QString get_usb_control_command() const;
    [[nodiscard]] QString get_limit_ports_command() const;
    [[nodiscard]] QString get_cursor_roll_command() const;
    [[nodiscard]] QString get_mouse_parking_command() const;
    /// On a Lite the channel of keyboard and mouse decides, not the selected mode.
    [[nodiscard]] QString get_mouse_mode_command() const;
    /// The disabled beep button shows the current state.
    [[nodiscard]] QString get_buzzer_command() const;

    // Values from reports and files. Each takes the report's word or the file's command; any other
    // text counts as the first choice.
    void set_cursor_roll_from_value(const std::string& value);
    void set_mouse_mode_from_value(const std::string& value);
    void set_buzzer_from_value(const std::string& value);
    /// Reads "//MP x y" into the two fields; the second keeps the space before it.
    void apply_mouse_parking_value(const std::string& value);
    /// The channel of keyboard and mouse, or of USB, as a decimal text.
    void set_km_channel(const std::string& channel);
    void set_usb_channel(const std::string& channel);
    void set_hotkey_trigger(const std::string& text);
    void set_mouse_parking(const std::string& x, const std::string& y);

private:
    /// Sends a command if the change came from the user.
    bool send_user_change(const QString& command);
    void show_buzzer(bool on);

    Configuration_Widgets widgets;
    Switch_Session& session;
    Layout_Page& layout;
    const Model_Traits& model;
};
