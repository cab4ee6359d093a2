// SPDX-License-Identifier: MIT

#include "link/custom_setting.h"

#include "link/channels.h"
#include "link/report_values.h"
#include "link/switch_protocol.h"

#include <algorithm>
#include <stdexcept>

namespace {

// One separator follows the key; four fields of at most two characters and their
// separators follow.
constexpr std::size_t fields_offset = 1;
constexpr std::size_t fields_length = 12;

bool is_digit(char character) { return character >= '0' && character <= '9'; }

} // namespace

Custom_Setting read_custom_setting(const QString& line) {
    if (line.size() < static_cast<qsizetype>(name_offset_in_report)) {
        throw std::out_of_range("the custom entry is shorter than its columns");
    }
    QString name = line.mid(name_offset_in_report);
    name.remove('\t').remove(' ');
    return {line.left(3), line.mid(4, 3), name};
}

std::string custom_setting_name(const std::string& text, std::size_t offset) {
    std::string name = text.substr(offset);
    std::erase(name, ' ');
    return name;
}

std::string find_custom_setting(std::string_view key, std::string_view status_report) {
    const std::string_view line = find_report_value(key, status_report);
    if (line.size() < name_offset_in_report) {
        throw std::out_of_range("no custom entry behind " + std::string(key));
    }
    return std::string(line);
}

std::vector<std::string> read_channel_resolutions(std::string_view status_report) {
    const std::string_view key = switch_protocol::resolutions_key;
    const std::string_view rest = find_rest_behind(key, status_report);
    if (rest.empty()) {
        throw std::out_of_range("no resolutions behind " + std::string(key));
    }
    return parse_channels_resolution(
        rest.substr(0, fields_offset + fields_length).substr(fields_offset));
}

std::vector<std::string> parse_channels_resolution(std::string_view fields) {
    std::vector<std::string> values;
    std::size_t i = 0;
    while (i < fields.size() && values.size() < channel_count) {
        if (is_digit(fields[i])) {
            values.emplace_back(1, fields[i]);
            i += 2;
        } else if (fields[i] == 'C' && i + 1 < fields.size()) {
            // Entry C1 is item 10 of the list, C4 item 13.
            values.push_back({'1', static_cast<char>(fields[i + 1] - 1)});
            i += 2;
        } else {
            i += 1;
        }
    }
    return values;
}
