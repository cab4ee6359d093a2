// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <string>

/// Turns command texts into the bytes that go to the switch: the text, then one carriage return
/// (0x0D). The switch expects no line feed, length or checksum.
///
/// The text is converted to hexadecimal digits and back, which changes no byte. Each step reports
/// its own failure and passes an empty value to the next step.
class Command_Encoder {
public:
    /// Writes the text of a failure to the log and shows it.
    using Failure_Report = std::function<void(const std::string& text)>;

    explicit Command_Encoder(Failure_Report report_failure);

    /// Appends the carriage return to the caller's own text and returns its bytes; empty after a
    /// failure, reported as "Bytes converting error".
    QByteArray string_to_bytes(std::string& text) const;

    /// The same for a QString, which travels as UTF-8.
    QByteArray qstring_to_bytes(QString& text) const;

    /// Two lower-case hexadecimal digits for each byte, taken unsigned; empty after a failure,
    /// reported as "Hex converting error".
    [[nodiscard]] std::string string_to_hex(const std::string& text) const;

private:
    [[nodiscard]] QByteArray bytes_by_hex(const std::string& text) const;

    Failure_Report report_failure;
};
