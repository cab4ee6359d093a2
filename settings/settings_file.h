#pragma once

#include "settings/setting_index.h"

#include <QString>

#include <span>
#include <string>
#include <string_view>

/// One labelled line of the file. A label ends with a colon and one blank.
namespace setting_label {
inline constexpr std::string_view km_control = "KM Control: ";
inline constexpr std::string_view usb_control = "USB Control: ";
inline constexpr std::string_view limit_ports = "Limit Ports: ";
inline constexpr std::string_view cursor_rolling = "Cursor Rolling: ";
inline constexpr std::string_view mouse_parking = "Mouse Parking: ";
inline constexpr std::string_view resolutions[] = {
    "Resolution channel 1: ", "Resolution channel 2: ", "Resolution channel 3: ",
    "Resolution channel 4: "};
inline constexpr std::string_view custom_settings[] = {
    "Custom mouse movement setting 1: ", "Custom mouse movement setting 2: ",
    "Custom mouse movement setting 3: ", "Custom mouse movement setting 4: "};
inline constexpr std::string_view custom_labels[] = {
    "Data from mouse movement label 1: ", "Data from mouse movement label 2: ",
    "Data from mouse movement label 3: ", "Data from mouse movement label 4: "};
inline constexpr std::string_view grid = "Grid settings: ";
inline constexpr std::string_view coordinates[] = {
    "Coordinates channel 1: ", "Coordinates channel 2: ", "Coordinates channel 3: ",
    "Coordinates channel 4: "};
inline constexpr std::string_view buzzer = "Buzzer: ";
inline constexpr std::string_view mouse_mode = "Mouse Mode: ";
inline constexpr std::string_view audio_command = "Audio settings: ";
/// The misspelt word stands in all files that exist.
inline constexpr std::string_view audio_state = "Audio chacked state: ";
} // namespace setting_label

/// A unit's settings as a text file: labelled lines whose values are, for the most part, the very
/// commands that bring a switch to this state. The file is saved from a window's widgets and
/// replayed into widgets and switch in two parts.
///
/// The operations take the window's settings as an argument, any type that offers the getters and
/// apply_and_send_setting(); they exist once for all three models. The user hears nothing of a file
/// that can't be read or written: the save ends with its usual box, and a load finds every value
/// empty. What stood in a file before a save that failed stands there still.
class Settings_File {
public:
    /// Asks for a file name, writes all lines but the audio ones, and says "File saved". A
    /// cancelled dialog writes and says nothing. The file of the model "pro" stays open for its
    /// audio lines.
    /// @throws what a getter throws; the file has not been touched then.
    template <class Window>
    void save_settings(Window& window);
    /// As save_settings; after its box the two audio lines follow.
    template <class Window>
    void save_settings_with_audio(Window& window);

    /// The part of a load: 1 asks for the file and applies the first lines, 2 applies the rest, if
    /// a first part was applied, and says "Settings file applied".
    template <class Window>
    void load_settings(Window& window, int mode);
    /// As load_settings; after the box of part 2 the audio lines and the mouse mode follow.
    template <class Window>
    void load_settings_with_audio(Window& window, int mode);

    /// The file chosen for loading has been read and its first part applied.
    [[nodiscard]] bool is_first_part_applied() const { return first_part_applied; }
    /// Whole text of the file that was loaded last.
    [[nodiscard]] const std::string& get_file_text() const { return file_text; }

    /// The value of the first line with a label; empty if there is none. Nothing is trimmed.
    [[nodiscard]] std::string value_after_label(std::string_view label) const;

private:
    struct Line_To_Read {
        std::string_view label;
        Setting_Index index;
    };

    template <class Window>
    void write_settings(Window& window);
    template <class Window>
    void read_settings_first_part(Window& window);
    template <class Window>
    void read_settings_second_part(Window& window);
    template <class Window>
    void apply_lines(Window& window, std::span<const Line_To_Read> lines);

    void ask_for_save_path();
    void ask_for_load_path();
    static void add_line(std::string& lines, std::string_view label, const QString& value);
    /// The lines become the file.
    void write_output(const std::string& lines);
    /// The lines follow in the file, unless it could not be written or has been closed.
    void append_output(const std::string& lines);
    void close_output();
    void read_whole_file();
    static void show_saved_box();
    static void show_applied_box();

    static constexpr std::string_view model_with_audio = "pro";
    static const std::span<const Line_To_Read> first_part_lines;
    static const std::span<const Line_To_Read> second_part_lines;
    static const std::span<const Line_To_Read> audio_lines;
    /// Last of all: it refills the mouse speed fields, which need the labels before it.
    static const std::span<const Line_To_Read> closing_lines;

    bool first_part_applied = false;
    QString save_path;
    QString load_path;
    std::string file_text;
    /// What stands in the file being written, while further lines may follow.
    std::string written_text;
    bool output_open = false;
};

template <class Window>
void Settings_File::save_settings(Window& window) {
    ask_for_save_path();
    if (save_path.isEmpty()) {
        close_output();
        return;
    }
    write_settings(window);
    show_saved_box();
}

template <class Window>
void Settings_File::save_settings_with_audio(Window& window) {
    save_settings(window);
    if (!save_path.isEmpty()) {
        std::string lines;
        add_line(lines, setting_label::audio_command, window.get_audio_command());
        add_line(lines, setting_label::audio_state, window.get_audio_state_text());
        append_output(lines);
    }
    close_output();
}

template <class Window>
void Settings_File::write_settings(Window& window) {
    // All of them before the file is touched: a getter may throw.
    std::string lines;
    add_line(lines, setting_label::km_control, window.get_km_control_command());
    add_line(lines, setting_label::usb_control, window.get_usb_control_command());
    add_line(lines, setting_label::limit_ports, window.get_limit_ports_command());
    add_line(lines, setting_label::cursor_rolling, window.get_cursor_roll_command());
    add_line(lines, setting_label::mouse_parking, window.get_mouse_parking_command());
    for (int channel = 1; channel <= 4; ++channel) {
        add_line(lines, setting_label::resolutions[channel - 1],
                 window.get_resolution_command(channel));
    }
    for (int number = 1; number <= 4; ++number) {
        add_line(lines, setting_label::custom_settings[number - 1],
                 window.get_custom_setting_command(number));
    }
    for (int number = 1; number <= 4; ++number) {
        add_line(lines, setting_label::custom_labels[number - 1],
                 window.get_custom_label_text(number));
    }
    add_line(lines, setting_label::grid, window.get_grid_command());
    for (int channel = 1; channel <= 4; ++channel) {
        add_line(lines, setting_label::coordinates[channel - 1],
                 window.get_channel_coordinates("Channel " + QString::number(channel)));
    }
    add_line(lines, setting_label::buzzer, window.get_buzzer_command());
    add_line(lines, setting_label::mouse_mode, window.get_mouse_mode_command());
    write_output(lines);
    if (window.get_model_tag() != model_with_audio) {
        close_output();
    }
}

template <class Window>
void Settings_File::load_settings(Window& window, int mode) {
    if (mode == 1) {
        first_part_applied = false;
        ask_for_load_path();
        if (!load_path.isEmpty()) {
            read_settings_first_part(window);
            first_part_applied = true;
        }
    } else if (mode == 2 && first_part_applied) {
        read_settings_second_part(window);
        show_applied_box();
    }
}

template <class Window>
void Settings_File::load_settings_with_audio(Window& window, int mode) {
    load_settings(window, mode);
    if (mode == 2 && first_part_applied) {
        apply_lines(window, audio_lines);
        apply_lines(window, closing_lines);
        load_path.clear();
        close_output();
    }
}

template <class Window>
void Settings_File::read_settings_first_part(Window& window) {
    read_whole_file();
    apply_lines(window, first_part_lines);
}

template <class Window>
void Settings_File::read_settings_second_part(Window& window) {
    apply_lines(window, second_part_lines);
    if (window.get_model_tag() != model_with_audio) {
        apply_lines(window, closing_lines);
        load_path.clear();
    }
}

template <class Window>
void Settings_File::apply_lines(Window& window, std::span<const Line_To_Read> lines) {
    for (const Line_To_Read& line : lines) {
        window.apply_and_send_setting(line.index, value_after_label(line.label));
    }
}
