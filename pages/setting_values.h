// SPDX-License-Identifier: MIT

#pragma once

#include "pages/grid.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The values of the lines of a settings file, most of which are commands to the switch. They are
/// extracted by the rules of the switch's own texts (link/report_values.h).

/// Where the name begins in the line of a custom entry, "//MM C1 150 300 NAME".
inline constexpr std::size_t name_offset_in_file = 15;

/// The channel after a command such as "//c"; nothing if there is none, or if it is "0".
std::optional<std::string> filed_channel(std::string_view command, const std::string& value);

/// The number after "//D".
/// @throws std::invalid_argument or std::out_of_range if it is not a number.
std::int64_t filed_port_limit(const std::string& value);

struct Filed_Parking {
    std::string x;
    /// With the space before it.
    std::string y;
};

/// The two positions after "//MP "; "0" for what is missing.
Filed_Parking filed_parking(const std::string& value);

/// The resolution of a channel (1 to 4) after "//CE 1 " to "//CE 4 "; "0" if it is missing.
std::string filed_resolution(int channel, const std::string& value);

/// The record of a coordinates line, looked up in a whole file.
/// @param label the line's label, including colon and space.
/// @throws std::invalid_argument or std::out_of_range if row or column is not a number.
Layout_Item parse_coordinates(const std::string& label, const std::string& text);
