// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>
#include <string_view>

/// The commands of the tool, and the fixed texts that it searches for in the answers. Command texts
/// are given here without their final carriage return.
namespace switch_protocol {

// Queries.
inline constexpr std::string_view status_query = "//rl";
inline constexpr std::string_view information_query = "//??";
inline constexpr std::string_view layout_query = "//BP";
inline constexpr std::string_view audio_query = "//QA";

// Settings that need no argument.
inline constexpr std::string_view mouse_absolute = "//ks";
inline constexpr std::string_view mouse_relative = "//km";
inline constexpr std::string_view cursor_roll_off = "//o0";
inline constexpr std::string_view cursor_roll_on = "//o1";
inline constexpr std::string_view buzzer_on = "//B1";
inline constexpr std::string_view buzzer_off = "//B0";
inline constexpr std::string_view soft_reset = "//R";
inline constexpr std::string_view factory_reset = "//F";
inline constexpr std::string_view audio_none = "//a x";
inline constexpr std::string_view audio_all = "//a 0";
inline constexpr std::string_view audio_follow = "//a f";

// Beginnings of settings with arguments.
inline constexpr std::string_view km_control = "//c";
inline constexpr std::string_view usb_control = "//u";
inline constexpr std::string_view port_limit = "//D";
inline constexpr std::string_view mouse_parking = "//MP ";
inline constexpr std::string_view resolution = "//CE ";

// Markers in the answers.
/// Either of the two in one chunk shows that a switch has answered.
inline constexpr std::string_view connected_markers[] = {"//RL", "KM"};
inline constexpr std::string_view layout_saved = "Saving horizontal dimension as";
inline constexpr std::string_view layout_line = "//FF";

// Keys of the information report. "Current USB Control " has no colon, unlike its notice.
inline constexpr std::string_view hotkey_trigger_key = "Current Hotkey Trigger: ";
inline constexpr std::string_view km_control_key = "Current KM Control: ";
inline constexpr std::string_view usb_control_key = "Current USB Control ";
inline constexpr std::string_view parking_x_key = "Current parking location: X=";
inline constexpr std::string_view parking_y_key = "Y=";

// Keys of the status report.
inline constexpr std::string_view port_limit_key = "KM Port Limit: ";
inline constexpr std::string_view cursor_roll_key = "KM Cursor Rolling: ";
inline constexpr std::string_view mouse_mode_key = "KM tracking mode: ";
inline constexpr std::string_view custom_keys[] = {"C1\t", "C2\t", "C3\t", "C4\t"};
inline constexpr std::string_view resolutions_key = "Channels resolution:";
inline constexpr std::string_view buzzer_key = "Buzzer: ";

// Notices, sent when a channel changes.
inline constexpr std::string_view both_notice = "**M";
inline constexpr std::string_view km_notice = "**C";
inline constexpr std::string_view usb_notice = "**U";
inline constexpr std::string_view usb_control_notice = "Current USB Control: ";
/// The answer to a resolution command; it begins like a "**C" notice but is none.
inline constexpr std::string_view resolution_answer = "**CE";
inline constexpr std::string_view audio_answers[] = {"**A ", "**A", "//A"};

/// A command that ends in a decimal number.
QString numbered(std::string_view command, int number);

/// A text constant as QString.
QString text(std::string_view constant);

/// "//CE c r": gives a channel (its digit "1" to "4") a resolution (1 to 13; 0 if none is chosen).
QString resolution_command(const QString& channel_digit, int resolution_number);

/// "//MP x y", with the two texts unchanged.
QString mouse_parking_command(const QString& x, const QString& y);

/// The custom entry as the Submit button stores it, "//MM CC1 x y name ": the entry's text ("C1" to
/// "C4") adds a second C, and a space ends the line; the switch expects both. Cut at 99 bytes.
std::string submitted_custom_setting(std::string_view entry, std::string_view x, std::string_view y,
                                     std::string_view name);

/// The custom entry as in a settings file, "//MM C1 x y name", without the second C, the final
/// space and double spaces. Cut at 49 bytes before double spaces are removed.
std::string filed_custom_setting(int entry, std::string_view x, std::string_view y,
                                 std::string_view name);

/// "//a" followed by " n" for each chosen channel; "//a x" for none.
QString audio_channels_command(const QString& channel_digits);

} // namespace switch_protocol
