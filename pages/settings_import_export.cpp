#include "pages/settings_import_export.h"

#include "app/message_box.h"
#include "link/report_values.h"
#include "link/switch_protocol.h"

#include <QTimer>

#include <cstdint>

namespace {

/// The place of a line among its four fellows, counting from 1.
int number_in_group(Setting_Index index, Setting_Index first) {
    return static_cast<int>(index) - static_cast<int>(first) + 1;
}

} // namespace

Settings_Import_Export::Settings_Import_Export(
    const Model_Traits& switch_model, Session_State& link_state, Command_Writer& command_writer,
    Configuration_Page& configuration_page, Mouse_Speed_Page& mouse_speed_page,
    Layout_Page& layout_page, Audio_Panel* audio_panel, QObject& window)
    : model(switch_model),
      state(link_state),
      writer(command_writer),
      configuration(configuration_page),
      mouse_speed(mouse_speed_page),
      layout(layout_page),
      audio(audio_panel),
      timer_target(window) {}

void Settings_Import_Export::create_settings_file() {
    writer.send_initial_command();
    if (model.has_audio) {
        settings_file.save_settings_with_audio(*this);
    } else {
        settings_file.save_settings(*this);
    }
}

void Settings_Import_Export::load_settings_file() {
    state.ui_changes_enabled = false;
    mouse_speed.remove_custom_setting_items();
    load(1);
    const bool file_chosen = settings_file.is_first_part_applied();
    if (!file_chosen) {
        read_everything_back();
    }
    if (file_chosen || model.arms_second_part_after_cancel) {
        QTimer::singleShot(second_part_wait_ms, Qt::PreciseTimer, &timer_target,
                           SLOT(load_second_part_of_settings()));
    }
}

void Settings_Import_Export::read_everything_back() {
    state.received_buff.clear();
    state.km_connected = false;
    writer.send_start_commands();
    state.ui_changes_enabled = true;
}

void Settings_Import_Export::load_second_part_of_settings() { load(2); }

void Settings_Import_Export::load(int mode) {
    if (model.has_audio) {
        settings_file.load_settings_with_audio(*this, mode);
    } else {
        settings_file.load_settings(*this, mode);
    }
}

void Settings_Import_Export::apply_and_send_setting(Setting_Index index, const std::string& value) {
    apply_setting_line(index, value);
    if (static_cast<int>(index) <= model.highest_sent_setting) {
        writer.writeCommand(std::string(value));
    }
}

void Settings_Import_Export::apply_setting_line(Setting_Index index, const std::string& value) {
    state.write_enabled = false;
    state.ui_changes_enabled = false;
    try {
        apply_value(index, value);
    } catch (...) {
        report_failure("Error in setting the interface");
    }
    state.write_enabled = true;
    state.ui_changes_enabled = true;
}

void Settings_Import_Export::apply_value(Setting_Index index, const std::string& value) {
    switch (index) {
    case Setting_Index::km_control: {
        const std::string channel = get_report_value(switch_protocol::km_control, value);
        if (channel != no_value) {
            configuration.set_km_channel(channel);
        }
        return;
    }
    case Setting_Index::usb_control: {
        const std::string channel = get_report_value(switch_protocol::usb_control, value);
        if (channel != no_value) {
            configuration.set_usb_channel(channel);
        }
        return;
    }
    case Setting_Index::mouse_mode:
        configuration.set_mouse_mode_from_value(value);
        mouse_speed.show_current_custom_setting();
        return;
    case Setting_Index::limit_ports: {
        const std::int64_t limit = std::stoi(get_report_value(switch_protocol::port_limit, value));
        layout.set_active_ports(limit - 1);
        return;
    }
    case Setting_Index::cursor_rolling:
        configuration.set_cursor_roll_from_value(value);
        return;
    case Setting_Index::mouse_parking:
        configuration.apply_mouse_parking_value(value);
        return;
    case Setting_Index::custom_setting_1:
    case Setting_Index::custom_setting_2:
    case Setting_Index::custom_setting_3:
    case Setting_Index::custom_setting_4:
        mouse_speed.add_custom_setting_name(value, name_offset_in_file);
        return;
    case Setting_Index::resolution_1:
    case Setting_Index::resolution_2:
    case Setting_Index::resolution_3:
    case Setting_Index::resolution_4: {
        const int channel = number_in_group(index, Setting_Index::resolution_1);
        const std::string key =
            std::string(switch_protocol::resolution) + std::to_string(channel) + ' ';
        mouse_speed.set_channel_resolution(channel, get_report_value(key, value));
        return;
    }
    case Setting_Index::grid:
        apply_coordinates();
        return;
    case Setting_Index::buzzer:
        configuration.set_buzzer_from_value(value);
        return;
    case Setting_Index::audio_command:
        return;
    case Setting_Index::audio_state:
        audio->parse_audio_state(value);
        return;
    case Setting_Index::custom_label_1:
    case Setting_Index::custom_label_2:
    case Setting_Index::custom_label_3:
    case Setting_Index::custom_label_4:
        mouse_speed.set_custom_label(number_in_group(index, Setting_Index::custom_label_1), value);
        return;
    }
}

void Settings_Import_Export::apply_coordinates() {
    std::vector<Layout_Item> cells;
    for (int channel = channel_count; channel >= 1; --channel) {
        const std::string label(setting_label::coordinates[channel - 1]);
        cells.insert(cells.begin(), parse_coordinates(label, settings_file.get_file_text()));
    }
    layout.rebuild_layout(cells);
}
