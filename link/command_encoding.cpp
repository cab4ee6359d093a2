// SPDX-License-Identifier: MIT

#include "link/command_encoding.h"

#include <iomanip>
#include <sstream>
#include <utility>

namespace {

constexpr char carriage_return = 13;

} // namespace

Command_Encoder::Command_Encoder(Failure_Report report) : report_failure(std::move(report)) {}

QByteArray Command_Encoder::string_to_bytes(std::string& text) const {
    try {
        text += carriage_return;
        return bytes_by_hex(text);
    } catch (...) {
        report_failure("Bytes converting error");
    }
    return {};
}

QByteArray Command_Encoder::qstring_to_bytes(QString& text) const {
    try {
        text += QChar(carriage_return);
        return bytes_by_hex(text.toStdString());
    } catch (...) {
        report_failure("Bytes converting error");
    }
    return {};
}

std::string Command_Encoder::string_to_hex(const std::string& text) const {
    try {
        std::ostringstream digits;
        digits.exceptions(std::ios::badbit);
        digits << std::hex << std::setfill('0');
        for (const char byte : text) {
            digits << std::setw(2) << unsigned{static_cast<unsigned char>(byte)};
        }
        return digits.str();
    } catch (...) {
        report_failure("Hex converting error");
    }
    return {};
}

QByteArray Command_Encoder::bytes_by_hex(const std::string& text) const {
    const std::string hex = string_to_hex(text);
    return QByteArray::fromHex(
        QString::fromUtf8(hex.data(), static_cast<qsizetype>(hex.size())).toUtf8());
}
