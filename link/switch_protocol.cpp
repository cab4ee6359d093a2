// SPDX-License-Identifier: MIT

#include "link/switch_protocol.h"

#include <initializer_list>

namespace switch_protocol {

namespace {

// The unit's own limits of a line; one byte of each buffer is reserved for the terminator.
constexpr std::size_t submitted_custom_limit = 100 - 1;
constexpr std::size_t filed_custom_limit = 50 - 1;

std::string joined(std::initializer_list<std::string_view> parts) {
    std::string whole;
    for (const std::string_view part : parts) {
        whole += part;
    }
    return whole;
}

bool is_inside_character(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// As much of a UTF-8 text as fits, in whole characters; of other bytes, as many as fit.
std::string cut(std::string text, std::size_t limit) {
    constexpr std::size_t max_rest = 3;
    if (text.size() <= limit) {
        return text;
    }
    std::size_t end = limit;
    while (is_inside_character(text[end]) && limit - end < max_rest) {
        --end;
    }
    text.resize(is_inside_character(text[end]) ? limit : end);
    return text;
}

} // namespace

QString numbered(std::string_view command, int number) {
    return text(command) + QString::number(number);
}

QString text(std::string_view constant) {
    return QString::fromUtf8(constant.data(), static_cast<qsizetype>(constant.size()));
}

QString resolution_command(const QString& channel_digit, int resolution_number) {
    return text(resolution) + channel_digit + ' ' + QString::number(resolution_number);
}

QString mouse_parking_command(const QString& x, const QString& y) {
    return text(mouse_parking) + x + ' ' + y;
}

std::string submitted_custom_setting(std::string_view entry, std::string_view x, std::string_view y,
                                     std::string_view name) {
    return cut(joined({"//MM C", entry, " ", x, " ", y, " ", name, " "}), submitted_custom_limit);
}

std::string filed_custom_setting(int entry, std::string_view x, std::string_view y,
                                 std::string_view name) {
    std::string line = cut(joined({"//MM C", std::to_string(entry), " ", x, " ", y, " ", name}),
                           filed_custom_limit);
    for (std::size_t at = line.find("  "); at != std::string::npos; at = line.find("  ", at)) {
        line.erase(at, 1);
    }
    return line;
}

QString audio_channels_command(const QString& channel_digits) {
    if (channel_digits.isEmpty()) {
        return text(audio_none);
    }
    QString command = "//a";
    for (const QChar digit : channel_digits) {
        command += ' ';
        command += digit;
    }
    return command;
}

} // namespace switch_protocol
