// SPDX-License-Identifier: MIT

#include "settings/settings_file.h"

#include "settings/file_dialogs.h"
#include "settings/file_storage.h"

namespace {

// Custom names come before the resolutions, because a resolution of 10 to 13 selects an item that
// must be in the list by then.
constexpr Line_To_Load first_part[] = {
    {setting_label::km_control, Setting_Index::km_control},
    {setting_label::custom_settings[0], Setting_Index::custom_setting_1},
    {setting_label::custom_settings[1], Setting_Index::custom_setting_2},
    {setting_label::custom_settings[2], Setting_Index::custom_setting_3},
    {setting_label::custom_settings[3], Setting_Index::custom_setting_4},
    {setting_label::resolutions[0], Setting_Index::resolution_1},
    {setting_label::resolutions[1], Setting_Index::resolution_2},
    {setting_label::resolutions[2], Setting_Index::resolution_3},
    {setting_label::resolutions[3], Setting_Index::resolution_4},
};

constexpr Line_To_Load second_part[] = {
    {setting_label::usb_control, Setting_Index::usb_control},
    {setting_label::limit_ports, Setting_Index::limit_ports},
    {setting_label::cursor_rolling, Setting_Index::cursor_rolling},
    {setting_label::mouse_parking, Setting_Index::mouse_parking},
    {setting_label::grid, Setting_Index::grid},
    {setting_label::buzzer, Setting_Index::buzzer},
    {setting_label::custom_labels[0], Setting_Index::custom_label_1},
    {setting_label::custom_labels[1], Setting_Index::custom_label_2},
    {setting_label::custom_labels[2], Setting_Index::custom_label_3},
    {setting_label::custom_labels[3], Setting_Index::custom_label_4},
};

constexpr Line_To_Load audio[] = {
    {setting_label::audio_command, Setting_Index::audio_command},
    {setting_label::audio_state, Setting_Index::audio_state},
};

constexpr Line_To_Load closing[] = {
    {setting_label::mouse_mode, Setting_Index::mouse_mode},
};

std::string text_of(std::span<const Setting_Line> lines) {
    std::string text;
    for (const Setting_Line& line : lines) {
        text += line.label;
        text += line.value.toStdString();
        text += '\n';
    }
    return text;
}

} // namespace

const std::span<const Line_To_Load> first_part_lines = first_part;
const std::span<const Line_To_Load> second_part_lines = second_part;
const std::span<const Line_To_Load> audio_lines = audio;
const std::span<const Line_To_Load> closing_lines = closing;

bool Settings_File::ask_for_save_path() {
    save_path = ask_where_to_save();
    if (save_path.isEmpty()) {
        close_output();
        return false;
    }
    return true;
}

void Settings_File::write_settings(std::span<const Setting_Line> lines) {
    written_text = text_of(lines);
    output_open = replace_file(save_path, written_text);
}

void Settings_File::append_settings(std::span<const Setting_Line> lines) {
    if (output_open) {
        written_text += text_of(lines);
        output_open = replace_file(save_path, written_text);
    }
}

void Settings_File::close_output() {
    written_text.clear();
    output_open = false;
}

bool Settings_File::read_chosen_file() {
    first_part_applied = false;
    const QString path = ask_what_to_load();
    if (path.isEmpty()) {
        return false;
    }
    file_text = read_file(path);
    return true;
}

std::string Settings_File::value_after_label(std::string_view label) const {
    const std::size_t found = file_text.find(label);
    if (found == std::string::npos) {
        return {};
    }
    const std::size_t begin = found + label.size();
    const std::size_t end = file_text.find('\n', begin);
    return file_text.substr(begin, end == std::string::npos ? end : end - begin);
}
