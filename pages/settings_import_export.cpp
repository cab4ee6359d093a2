// SPDX-License-Identifier: MIT

#include "pages/settings_import_export.h"

#include "app/message_box.h"
#include "link/channels.h"
#include "link/flag_guard.h"
#include "link/switch_protocol.h"
#include "link/switch_session.h"
#include "pages/audio_panel.h"
#include "pages/configuration_page.h"
#include "pages/layout_page.h"
#include "pages/model_traits.h"
#include "pages/mouse_speed_page.h"
#include "pages/setting_values.h"
#include "settings/setting_index.h"

#include <QTimer>

namespace {

/// The last line whose value is also sent to the switch during a load. What comes behind it, the
/// audio state and the labels, is no command.
constexpr Setting_Index highest_sent_setting = Setting_Index::audio_command;

/// The number of a line in its group of four, counting from 1.
int number_in_group(Setting_Index index, Setting_Index first) {
    return static_cast<int>(index) - static_cast<int>(first) + 1;
}

} // namespace

Settings_Import_Export::Settings_Import_Export(const Pages& all_pages,
                                               Switch_Session& switch_session,
                                               const Model_Traits& model_traits, QObject& window)
    : pages(all_pages), session(switch_session), model(model_traits), timer_target(window) {}

void Settings_Import_Export::create_settings_file() {
    session.writer.send_initial_command();
    if (!settings_file.ask_for_save_path()) {
        return;
    }
    settings_file.write_settings(lines_to_save());
    show_information_box("File saved", QMessageBox::Information);
    if (model.session.has_audio) {
        settings_file.append_settings(audio_lines_to_save());
    }
    settings_file.close_output();
}

void Settings_Import_Export::load_settings_file() {
    const bool file_chosen = load_first_part();
    if (file_chosen || model.arms_second_part_after_cancel) {
        QTimer::singleShot(second_part_wait_ms, Qt::PreciseTimer, &timer_target,
                           SLOT(load_second_part_of_settings()));
    }
}

bool Settings_Import_Export::load_first_part() {
    const Flag_Guard silent(session.state.ui_changes_enabled, false);
    pages.mouse_speed.remove_custom_setting_items();
    const bool file_chosen = settings_file.read_chosen_file();
    if (file_chosen) {
        apply_lines(first_part_lines);
        settings_file.set_first_part_applied();
    } else {
        read_everything_back();
    }
    return file_chosen;
}

void Settings_Import_Export::load_second_part_of_settings() {
    if (!settings_file.is_first_part_applied()) {
        return;
    }
    apply_lines(second_part_lines);
    if (!model.session.has_audio) {
        apply_lines(closing_lines);
    }
    show_information_box("Settings file applied", QMessageBox::Information);
    if (model.session.has_audio && settings_file.is_first_part_applied()) {
        apply_lines(audio_lines);
        apply_lines(closing_lines);
        settings_file.close_output();
    }
}

std::vector<Setting_Line> Settings_Import_Export::lines_to_save() const {
    std::vector<Setting_Line> lines{
        {setting_label::km_control, pages.configuration.get_km_control_command()},
        {setting_label::usb_control, pages.configuration.get_usb_control_command()},
        {setting_label::limit_ports, pages.configuration.get_limit_ports_command()},
        {setting_label::cursor_rolling, pages.configuration.get_cursor_roll_command()},
        {setting_label::mouse_parking, pages.configuration.get_mouse_parking_command()}};
    for (int channel = 1; channel <= channel_count; ++channel) {
        lines.push_back({setting_label::resolutions[channel - 1],
                         pages.mouse_speed.get_resolution_command(channel)});
    }
    for (int number = 1; number <= channel_count; ++number) {
        lines.push_back({setting_label::custom_settings[number - 1],
                         pages.mouse_speed.get_custom_setting_command(number)});
    }
    for (int number = 1; number <= channel_count; ++number) {
        lines.push_back({setting_label::custom_labels[number - 1],
                         pages.mouse_speed.get_custom_label_text(number)});
    }
    lines.push_back({setting_label::grid, pages.layout.get_grid_command()});
    for (int channel = 1; channel <= channel_count; ++channel) {
        lines.push_back(
            {setting_label::coordinates[channel - 1],
             pages.layout.get_channel_coordinates("Channel " + QString::number(channel))});
    }
    lines.push_back({setting_label::buzzer, pages.configuration.get_buzzer_command()});
    lines.push_back({setting_label::mouse_mode, pages.configuration.get_mouse_mode_command()});
    return lines;
}

std::vector<Setting_Line> Settings_Import_Export::audio_lines_to_save() const {
    return {{setting_label::audio_command, pages.audio->get_audio_command()},
            {setting_label::audio_state, pages.audio->get_audio_state_text()}};
}

void Settings_Import_Export::read_everything_back() {
    session.state.received_buff.clear();
    session.state.km_connected = false;
    session.writer.send_start_commands();
}

void Settings_Import_Export::apply_lines(std::span<const Line_To_Load> lines) {
    for (const Line_To_Load& line : lines) {
        apply_and_send_setting(line.index, settings_file.value_after_label(line.label));
    }
}

void Settings_Import_Export::apply_and_send_setting(Setting_Index index, const std::string& value) {
    apply_setting_line(index, value);
    if (index <= highest_sent_setting) {
        session.writer.writeCommand(std::string(value));
    }
}

void Settings_Import_Export::apply_setting_line(Setting_Index index, const std::string& value) {
    const Flag_Guard unsent(session.state.write_enabled, false);
    const Flag_Guard silent(session.state.ui_changes_enabled, false);
    try {
        apply_value(index, value);
    } catch (...) {
        report_failure("Error in setting the interface");
    }
}

void Settings_Import_Export::apply_value(Setting_Index index, const std::string& value) {
    switch (index) {
    case Setting_Index::km_control:
        if (const auto channel = filed_channel(switch_protocol::km_control, value)) {
            pages.configuration.set_km_channel(*channel);
        }
        return;
    case Setting_Index::usb_control:
        if (const auto channel = filed_channel(switch_protocol::usb_control, value)) {
            pages.configuration.set_usb_channel(*channel);
        }
        return;
    case Setting_Index::mouse_mode:
        pages.configuration.set_mouse_mode_from_value(value);
        pages.mouse_speed.show_current_custom_setting();
        return;
    case Setting_Index::limit_ports:
        pages.layout.set_active_ports(filed_port_limit(value) - 1);
        return;
    case Setting_Index::cursor_rolling:
        pages.configuration.set_cursor_roll_from_value(value);
        return;
    case Setting_Index::mouse_parking:
        pages.configuration.apply_mouse_parking_value(value);
        return;
    case Setting_Index::custom_setting_1:
    case Setting_Index::custom_setting_2:
    case Setting_Index::custom_setting_3:
    case Setting_Index::custom_setting_4:
        pages.mouse_speed.add_custom_setting_name(value, name_offset_in_file);
        return;
    case Setting_Index::resolution_1:
    case Setting_Index::resolution_2:
    case Setting_Index::resolution_3:
    case Setting_Index::resolution_4: {
        const int channel = number_in_group(index, Setting_Index::resolution_1);
        pages.mouse_speed.set_channel_resolution(channel, filed_resolution(channel, value));
        return;
    }
    case Setting_Index::grid:
        apply_coordinates();
        return;
    case Setting_Index::buzzer:
        pages.configuration.set_buzzer_from_value(value);
        return;
    case Setting_Index::audio_command:
        return;
    case Setting_Index::audio_state:
        pages.audio->parse_audio_state(value);
        return;
    case Setting_Index::custom_label_1:
    case Setting_Index::custom_label_2:
    case Setting_Index::custom_label_3:
    case Setting_Index::custom_label_4:
        pages.mouse_speed.set_custom_label(number_in_group(index, Setting_Index::custom_label_1),
                                           value);
        return;
    }
}

void Settings_Import_Export::apply_coordinates() {
    std::vector<Layout_Item> cells;
    for (int channel = channel_count; channel >= 1; --channel) {
        const std::string label(setting_label::coordinates[channel - 1]);
        cells.insert(cells.begin(), parse_coordinates(label, settings_file.get_file_text()));
    }
    pages.layout.rebuild_layout(cells);
}
