#include "settings/settings_file.h"

#include "app/message_box.h"
#include "settings/file_dialogs.h"
#include "settings/file_storage.h"

// Custom names come before the resolutions, because a resolution of 10 to 13 picks an item that
// must already stand in the list.
const std::span<const Settings_File::Line_To_Read> Settings_File::first_part_lines = [] {
    static constexpr Line_To_Read lines[] = {
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
    return std::span<const Line_To_Read>(lines);
}();

const std::span<const Settings_File::Line_To_Read> Settings_File::second_part_lines = [] {
    static constexpr Line_To_Read lines[] = {
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
    return std::span<const Line_To_Read>(lines);
}();

const std::span<const Settings_File::Line_To_Read> Settings_File::audio_lines = [] {
    static constexpr Line_To_Read lines[] = {
        {setting_label::audio_command, Setting_Index::audio_command},
        {setting_label::audio_state, Setting_Index::audio_state},
    };
    return std::span<const Line_To_Read>(lines);
}();

const std::span<const Settings_File::Line_To_Read> Settings_File::closing_lines = [] {
    static constexpr Line_To_Read lines[] = {
        {setting_label::mouse_mode, Setting_Index::mouse_mode},
    };
    return std::span<const Line_To_Read>(lines);
}();

std::string Settings_File::value_after_label(std::string_view label) const {
    const std::size_t found = file_text.find(label);
    if (found == std::string::npos) {
        return {};
    }
    const std::size_t begin = found + label.size();
    const std::size_t end = file_text.find('\n', begin);
    return file_text.substr(begin, end == std::string::npos ? end : end - begin);
}

void Settings_File::ask_for_save_path() { save_path = ask_where_to_save(); }

void Settings_File::ask_for_load_path() {
    // A second part that comes due while the dialog stands must not find the earlier path.
    load_path.clear();
    load_path = ask_what_to_load();
}

void Settings_File::add_line(std::string& lines, std::string_view label, const QString& value) {
    lines += label;
    lines += value.toStdString();
    lines += '\n';
}

void Settings_File::write_output(const std::string& lines) {
    written_text = lines;
    output_open = replace_file(save_path, written_text);
}

void Settings_File::append_output(const std::string& lines) {
    if (output_open) {
        write_output(written_text + lines);
    }
}

void Settings_File::close_output() {
    written_text.clear();
    output_open = false;
}

void Settings_File::read_whole_file() { file_text = read_file(load_path); }

void Settings_File::show_saved_box() {
    show_information_box("File saved", QMessageBox::Information);
}

void Settings_File::show_applied_box() {
    show_information_box("Settings file applied", QMessageBox::Information);
}
