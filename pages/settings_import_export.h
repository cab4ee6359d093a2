// SPDX-License-Identifier: MIT

#pragma once

#include "pages/pages.h"
#include "settings/settings_file.h"

#include <span>
#include <string>
#include <vector>

class QObject;
class Switch_Session;
struct Model_Traits;

/// Saves a unit's settings to a file and loads them into this or another unit: which lines the
/// pages provide, and how each line is applied to the pages and to the switch.
class Settings_Import_Export {
public:
    /// From the first to the second part of a load: the unit needs this time to store the entries.
    static constexpr int second_part_wait_ms = 2000;

    /// @param window the object whose slot load_second_part_of_settings() the timer calls.
    Settings_Import_Export(const Pages& all_pages, Switch_Session& switch_session,
                           const Model_Traits& model_traits, QObject& window);

    /// Asks for a file name, writes all lines except the audio lines, shows "File saved", and then
    /// writes the audio lines. If the dialog is cancelled, nothing is written or shown.
    /// @throws std::out_of_range if the last report contained no custom entries; the file is then
    ///         unchanged.
    void create_settings_file();
    /// Asks for a file and applies its first part; the second follows by timer. If the dialog is
    /// cancelled, everything is read back, because the custom names were cleared.
    void load_settings_file();
    /// Applies the rest, if a first part was applied, and shows "Settings file applied". On a
    /// model with audio, the audio lines and the mouse mode follow after the message box.
    void load_second_part_of_settings();

private:
    [[nodiscard]] std::vector<Setting_Line> lines_to_save() const;
    [[nodiscard]] std::vector<Setting_Line> audio_lines_to_save() const;
    /// The part before the timer. @return whether a file was chosen.
    bool load_first_part();
    void read_everything_back();
    void apply_lines(std::span<const Line_To_Load> lines);
    /// Applies one line to the widgets and then sends its value unchanged, an empty value as a
    /// single carriage return. The lines that only the tool understands are not sent.
    void apply_and_send_setting(Setting_Index index, const std::string& value);
    void apply_setting_line(Setting_Index index, const std::string& value);
    void apply_value(Setting_Index index, const std::string& value);
    void apply_coordinates();

    Pages pages;
    Switch_Session& session;
    const Model_Traits& model;
    QObject& timer_target;
    Settings_File settings_file;
};
