// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

/// Extracts values from the switch's free text. A value is found by searching for a fixed key at
/// any position; the first occurrence is used. It runs from the end of the key to the next line
/// feed or the end of the text; a carriage return before the line feed stays in it.

/// The text after the key up to the line feed; empty if the key is missing.
std::string_view find_report_value(std::string_view key, std::string_view text);

/// What a missing or empty value reads as. No channel has this number.
inline constexpr std::string_view no_value = "0";

/// As find_report_value, with `no_value` for a missing key and for an empty value alike.
std::string get_report_value(std::string_view key, std::string_view text);

/// The value up to its first space; `no_value` if that is empty.
std::string get_report_token(std::string_view key, std::string_view text);

/// The two characters after a layout key ("01B" to "04B") in the switch's layout text.
/// @return empty if the layout text is empty.
/// @throws std::out_of_range if fewer than two characters follow the key.
std::string get_layout_position(std::string_view key, std::string_view layout_text);

/// All text after the key, past line ends, to the end of the text; empty if the key is missing.
std::string_view find_rest_behind(std::string_view key, std::string_view text);
