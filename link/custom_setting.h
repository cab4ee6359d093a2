// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>
#include <string_view>
#include <vector>

/// The custom entries C1 to C4 and the channels' resolutions, as the switch's status report and the
/// settings file write them.

/// Number of resolutions that every unit knows; the custom entries follow as items 10 to 13.
inline constexpr int fixed_resolution_count = 9;
/// Where the name begins in the switch's own line of an entry: three digits of X, a separator,
/// three digits of Y, a separator.
inline constexpr std::size_t name_offset_in_report = 8;

/// One entry as the page's fields show it.
struct Custom_Setting {
    QString x;
    QString y;
    QString name;
};

/// Reads the fixed columns of the switch's line; blanks and tabs are dropped from the name.
/// @throws std::out_of_range if the line is shorter than its columns, eight characters.
Custom_Setting read_custom_setting(const QString& line);

/// The text from an offset to the end, without its blanks.
/// @throws std::out_of_range if the offset lies beyond the end.
std::string custom_setting_name(const std::string& text, std::size_t offset);

/// The line of one of the keys "C1\t" to "C4\t" in a status report.
/// @throws std::out_of_range, which names the key, if the key is missing or its line is shorter
/// than its columns.
std::string find_custom_setting(std::string_view key, std::string_view status_report);

/// The values behind "Channels resolution:" in a status report, one text for each channel in
/// order, as a number 1 to 13: "1 C2 3" gives "1", "11", "3". A fifth field is ignored.
/// @throws std::out_of_range, which names the key, if it is missing or nothing is behind it.
std::vector<std::string> read_channel_resolutions(std::string_view status_report);

/// The fields of a resolution text. A digit is a fixed resolution; "C" and a digit a custom entry;
/// all else is skipped.
std::vector<std::string> parse_channels_resolution(std::string_view fields);
