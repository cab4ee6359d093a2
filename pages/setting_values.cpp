// SPDX-License-Identifier: MIT

#include "pages/setting_values.h"

#include "link/report_values.h"
#include "link/switch_protocol.h"

std::optional<std::string> filed_channel(std::string_view command, const std::string& value) {
    std::string channel = get_report_value(command, value);
    if (channel == no_value) {
        return std::nullopt;
    }
    return channel;
}

std::int64_t filed_port_limit(const std::string& value) {
    return std::stoi(get_report_value(switch_protocol::port_limit, value));
}

Filed_Parking filed_parking(const std::string& value) {
    const std::string x = get_report_token(switch_protocol::mouse_parking, value);
    return {x, get_report_value(std::string(switch_protocol::mouse_parking) + x, value)};
}

std::string filed_resolution(int channel, const std::string& value) {
    return get_report_value(
        std::string(switch_protocol::resolution) + std::to_string(channel) + ' ', value);
}

Layout_Item parse_coordinates(const std::string& label, const std::string& text) {
    const std::string row = get_report_token(label, text);
    const std::string column = get_report_value(label + row + ' ', text);
    Layout_Item item;
    item.row = std::stoi(row);
    item.column = std::stoi(column);
    return item;
}
