#pragma once

#include "link/command_writer.h"
#include "link/session_state.h"
#include "pages/audio_panel.h"
#include "pages/configuration_page.h"
#include "pages/layout_page.h"
#include "pages/model_traits.h"
#include "pages/mouse_speed_page.h"
#include "settings/settings_file.h"

#include <QObject>

#include <functional>
#include <string>

/// Saving a unit's settings to a file and loading them into this or another unit: what the settings
/// file reads from the pages, and how each of its lines is applied to them and to the switch.
class Settings_Import_Export {
public:
    /// From the first part of a load to the second: the unit must have taken the custom entries.
    static constexpr int second_part_wait_ms = 2000;

    /// @param audio_panel null on a model without audio.
    /// @param window the object whose slot load_second_part_of_settings() the timer calls.
    Settings_Import_Export(const Model_Traits& switch_model, Session_State& link_state,
                           Command_Writer& command_writer, Configuration_Page& configuration_page,
                           Mouse_Speed_Page& mouse_speed_page, Layout_Page& layout_page,
                           Audio_Panel* audio_panel, QObject& window);

    void create_settings_file();
    void load_settings_file();
    void load_second_part_of_settings();

    // What the settings file holds; each is told at the page that gives it.
    [[nodiscard]] std::string_view get_model_tag() const { return model.tag; }
    [[nodiscard]] QString get_km_control_command() const {
        return configuration.get_km_control_command();
    }
    [[nodiscard]] QString get_usb_control_command() const {
        return configuration.get_usb_control_command();
    }
    [[nodiscard]] QString get_limit_ports_command() const {
        return configuration.get_limit_ports_command();
    }
    [[nodiscard]] QString get_cursor_roll_command() const {
        return configuration.get_cursor_roll_command();
    }
    [[nodiscard]] QString get_mouse_parking_command() const {
        return configuration.get_mouse_parking_command();
    }
    [[nodiscard]] QString get_resolution_command(int channel) const {
        return mouse_speed.get_resolution_command(channel);
    }
    [[nodiscard]] QString get_custom_setting_command(int number) const {
        return mouse_speed.get_custom_setting_command(number);
    }
    [[nodiscard]] QString get_custom_label_text(int number) const {
        return mouse_speed.get_custom_label_text(number);
    }
    [[nodiscard]] QString get_grid_command() const { return layout.get_grid_command(); }
    [[nodiscard]] QString get_channel_coordinates(const QString& name) const {
        return layout.get_channel_coordinates(name);
    }
    [[nodiscard]] QString get_buzzer_command() const { return configuration.get_buzzer_command(); }
    [[nodiscard]] QString get_mouse_mode_command() const {
        return configuration.get_mouse_mode_command();
    }
    // Only on a model with audio.
    [[nodiscard]] QString get_audio_command() const { return audio->get_audio_command(); }
    [[nodiscard]] QString get_audio_state_text() const { return audio->get_audio_state_text(); }

    /// Applies one line to the widgets and then sends its value as it stands, an empty one as a
    /// lone carriage return. The lines that only the tool understands are not sent.
    void apply_and_send_setting(Setting_Index index, const std::string& value);

private:
    void load(int mode);
    /// After a cancelled dialog, for which the custom names have gone.
    void read_everything_back();
    void apply_setting_line(Setting_Index index, const std::string& value);
    void apply_value(Setting_Index index, const std::string& value);
    void apply_coordinates();

    const Model_Traits& model;
    Session_State& state;
    Command_Writer& writer;
    Configuration_Page& configuration;
    Mouse_Speed_Page& mouse_speed;
    Layout_Page& layout;
    Audio_Panel* audio;
    QObject& timer_target;
    Settings_File settings_file;
};
