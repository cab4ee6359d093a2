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

/// Saving a unit's settings to a file and loading them into this or another unit: which lines the
/// pages give, and how each line is applied to them and to the switch.
class Settings_Import_Export {
public:
    /// From the first part of a load to the second: the unit must have taken the custom entries.
    static constexpr int second_part_wait_ms = 2000;

    /// @param window the object whose slot load_second_part_of_settings() the timer calls.
    Settings_Import_Export(const Pages& all_pages, Switch_Session& switch_session,
                           const Model_Traits& model_traits, QObject& window);

    /// Asks for a file name, writes all lines but the audio ones, says "File saved", and lets the
    /// audio lines follow. A cancelled dialog writes and says nothing.
    /// @throws std::out_of_range if the last report held no custom entries; the file has not been
    ///         touched then.
    void create_settings_file();
    /// Asks for a file and applies its first part; the second follows by timer. A cancelled dialog
    /// reads everything back, for the custom names have gone.
    void load_settings_file();
    /// Applies the rest, if a first part was applied, and says "Settings file applied". On a model
    /// with audio its lines and the mouse mode follow the box.
    void load_second_part_of_settings();

private:
    [[nodiscard]] std::vector<Setting_Line> lines_to_save() const;
    [[nodiscard]] std::vector<Setting_Line> audio_lines_to_save() const;
    void read_everything_back();
    void apply_lines(std::span<const Line_To_Load> lines);
    /// Applies one line to the widgets and then sends its value as it is in the file, an empty one
    /// as a lone carriage return. The lines that only the tool understands are not sent.
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
