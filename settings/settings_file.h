// SPDX-License-Identifier: MIT

#pragma once

#include "settings/setting_index.h"

#include <QString>

#include <span>
#include <string>
#include <string_view>

/// One labelled line of the file. A label ends with a colon and one space.
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
/// The misspelt word is in all existing files.
inline constexpr std::string_view audio_state = "Audio chacked state: ";
} // namespace setting_label

/// A line to be saved.
struct Setting_Line {
    std::string_view label;
    QString value;
};

/// A line to be loaded.
struct Line_To_Load {
    std::string_view label;
    Setting_Index index;
};

// The lines of a load, in the order in which they are applied.
extern const std::span<const Line_To_Load> first_part_lines;
extern const std::span<const Line_To_Load> second_part_lines;
extern const std::span<const Line_To_Load> audio_lines;
/// Last, because it fills the mouse speed fields, which need the labels before it.
extern const std::span<const Line_To_Load> closing_lines;

/// A unit's settings as a text file: labelled lines, most of whose values are the commands that set
/// a switch to this state. Lines are written in the given order. When loaded, they are found by
/// their labels, in any order.
///
/// The user is not told of a file that cannot be read or written: a load finds every value empty,
/// and a failed save leaves the content of the file unchanged.
class Settings_File {
public:
    // Saving.
    /// Asks for a file name. A cancelled dialog returns none and ends an unfinished save.
    [[nodiscard]] bool ask_for_save_path();
    /// Writes the lines to the file. Others can be appended until the file is closed.
    void write_settings(std::span<const Setting_Line> lines);
    /// Appends the lines to the file, unless it could not be written or has been closed.
    void append_settings(std::span<const Setting_Line> lines);
    void close_output();

    // Loading.
    /// Asks for a file and reads all of it. Without a file the earlier one is kept, and there is no
    /// part to be applied.
    [[nodiscard]] bool read_chosen_file();
    /// The first part has been applied: the second may follow.
    void set_first_part_applied() { first_part_applied = true; }
    [[nodiscard]] bool is_first_part_applied() const { return first_part_applied; }

    /// Whole text of the file that was loaded last.
    [[nodiscard]] const std::string& get_file_text() const { return file_text; }
    /// The value of the first line with a label; empty if there is none. Nothing is trimmed.
    [[nodiscard]] std::string value_after_label(std::string_view label) const;

private:
    bool first_part_applied = false;
    QString save_path;
    std::string file_text;
    /// The content of the file being written, while further lines may follow.
    std::string written_text;
    bool output_open = false;
};
