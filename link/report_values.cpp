// SPDX-License-Identifier: MIT

#include "link/report_values.h"

#include <stdexcept>

std::string_view find_rest_behind(std::string_view key, std::string_view text) {
    const std::size_t found = text.find(key);
    return found == std::string_view::npos ? std::string_view() : text.substr(found + key.size());
}

std::string_view find_report_value(std::string_view key, std::string_view text) {
    const std::string_view rest = find_rest_behind(key, text);
    return rest.substr(0, rest.find('\n'));
}

std::string get_report_value(std::string_view key, std::string_view text) {
    const std::string_view value = find_report_value(key, text);
    return std::string(value.empty() ? no_value : value);
}

std::string get_report_token(std::string_view key, std::string_view text) {
    const std::string_view value = find_report_value(key, text);
    const std::string_view token = value.substr(0, value.find(' '));
    return std::string(token.empty() ? no_value : token);
}

std::string get_layout_position(std::string_view key, std::string_view layout_text) {
    if (layout_text.empty()) {
        return {};
    }
    const std::string_view value = find_report_value(key, layout_text);
    if (value.size() < 2) {
        throw std::out_of_range("no grid position behind " + std::string(key));
    }
    return std::string(value.substr(0, 2));
}
