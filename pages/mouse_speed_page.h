// SPDX-License-Identifier: MIT

#pragma once

#include "link/channels.h"
#include "link/custom_setting.h"
#include "pages/page_widgets.h"

#include <QString>

#include <string>

class QComboBox;
class Switch_Session;

/// The page of mouse speeds: a resolution for each channel, and four custom entries, which
/// follow the nine fixed resolutions in the same lists.
class Mouse_Speed_Page {
public:
    /// From storing a custom entry to reading everything back.
    static constexpr int custom_setting_wait_ms = 800;
    /// Items of the custom entries in the resolution lists.
    static constexpr int first_custom_item = fixed_resolution_count;
    static constexpr int last_custom_item = fixed_resolution_count + channel_count - 1;

    Mouse_Speed_Page(const Mouse_Speed_Widgets& page_widgets, Switch_Session& switch_session);

    // The user's changes.
    /// A resolution list of a channel (1 to 4) has changed; sent only while ui_changes_enabled.
    void resolution_changed(int channel);
    /// Shows the selected entry; a label without an entry clears the fields.
    void number_of_setting_changed(int index);
    /// Checks the fields and stores the entry in the switch.
    void submit_custom_setting();

    /// "//CE c r" for a channel (1 to 4), with resolution 0 if none is chosen.
    [[nodiscard]] QString get_resolution_command(int channel) const;
    /// The custom entry (1 to 4) as in a settings file, from the switch's own numbers and the name
    /// in the lists. Empty before the first report, and for any other number.
    /// @throws std::out_of_range if the report contains no numbers of the entry.
    [[nodiscard]] QString get_custom_setting_command(int number) const;
    /// The switch's own line of the entry (1 to 4).
    [[nodiscard]] QString get_custom_label_text(int number) const;

    // Values from reports and files.
    /// Appends the name that begins at an offset to all four lists; old names must be gone.
    /// @throws std::out_of_range if the offset lies beyond the end.
    void add_custom_setting_name(const std::string& text, std::size_t position);
    /// Removes the items first to last from all four lists, if they contain custom entries, and
    /// then leaves ui_changes_enabled true.
    void remove_custom_setting_items(int first, int last);
    void remove_custom_setting_items() {
        remove_custom_setting_items(first_custom_item, last_custom_item);
    }
    /// Shows the switch's line of an entry (1 to 4) as it came.
    void set_custom_label(int number, const std::string& line);
    /// Fills the fields from the label with an index (0 to 3).
    /// @throws std::out_of_range if the label is shorter than its columns.
    void show_custom_setting(int index);
    void show_current_custom_setting();
    /// Sets the four lists from the status report.
    /// @throws std::out_of_range if the report has no resolutions.
    void set_channels_resolution();
    /// Sets the list of a channel (1 to 4) from a number's text.
    void set_channel_resolution(int channel, const std::string& number);

private:
    [[nodiscard]] bool check_custom_setting() const;
    [[nodiscard]] bool is_name_taken() const;
    [[nodiscard]] QComboBox& resolutions_of(int channel) const;
    /// The item of the chosen custom entry in the resolution lists, 9 to 12.
    [[nodiscard]] int current_custom_item() const;
    void show_fields(const Custom_Setting& setting);

    Mouse_Speed_Widgets widgets;
    Switch_Session& session;
};
