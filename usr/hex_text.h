// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// Conversions between the texts of widgets (names, dotted addresses) and the hexadecimal text of
/// the adapter's frames and answers: two lower-case digits for each byte, without separators. All
/// functions are pure.

/// The text's UTF-8 bytes, two digits for each.
[[nodiscard]] QString text_to_hex(const QString& text);

/// text_to_hex(), padded on the right with '0' to `width` digits. A longer text is not cut.
[[nodiscard]] QString text_to_hex_field(const QString& text, qsizetype width);

/// A dotted address in its own order: "10.0.0.7" gives "0a000007". Empty when a part between the
/// dots is not a decimal number from 0 to 255. The number of parts is not checked.
[[nodiscard]] QString dotted_to_hex(const QString& text);

/// An address with its last octet first, as the adapter expects and sends it in its settings. Only
/// the first 8 digits are used.
/// @throws std::out_of_range for a text shorter than 6 digits.
[[nodiscard]] QString reverse_hex_bytes(const QString& text);

/// The dotted form of an address of exactly 8 digits; empty for any other length.
[[nodiscard]] QString hex_to_dotted(const QString& text);

/// The text before the first byte "00", pair by pair; the whole text if there is none.
[[nodiscard]] QString cut_at_zero_byte(const QString& text);

/// The text whose UTF-8 bytes these are. Bytes that are not UTF-8 become replacement characters.
[[nodiscard]] QString hex_to_text(const QString& text);

/// The bytes themselves, as they go to the socket. A last single digit is a byte by itself.
[[nodiscard]] QByteArray hex_to_bytes(const QString& text);

/// A run of digits in a hexadecimal text.
struct Hex_Field {
    qsizetype first_digit;
    qsizetype digits;
};

/// The digits of a field, fewer if the text ends inside it.
/// @throws std::out_of_range if the text ends before the field begins.
[[nodiscard]] QString cut_field(const QString& text, const Hex_Field& field);
