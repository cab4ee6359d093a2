// SPDX-License-Identifier: MIT

#include "usr/hex_text.h"

#include <QStringList>

#include <stdexcept>

namespace {

constexpr int digits_per_byte = 2;
constexpr qsizetype address_digits = 8;

QString two_digits(uint value) { return QString("%1").arg(value, digits_per_byte, 16, QChar('0')); }

} // namespace

QString text_to_hex(const QString& text) { return QString::fromLatin1(text.toUtf8().toHex()); }

QString text_to_hex_field(const QString& text, qsizetype width) {
    return text_to_hex(text).leftJustified(width, QChar('0'));
}

QString dotted_to_hex(const QString& text) {
    QString hex;
    for (const QString& part : text.split(QChar('.'), Qt::KeepEmptyParts)) {
        bool is_number = false;
        const uint octet = part.toUInt(&is_number, 10);
        if (!is_number || octet > 255) {
            return {};
        }
        hex += two_digits(octet);
    }
    return hex;
}

QString reverse_hex_bytes(const QString& text) {
    QString reversed;
    for (qsizetype first = address_digits - digits_per_byte; first >= 0; first -= digits_per_byte) {
        reversed += cut_field(text, {first, digits_per_byte});
    }
    return reversed;
}

QString hex_to_dotted(const QString& text) {
    if (text.size() != address_digits) {
        return {};
    }
    QStringList octets;
    for (qsizetype first = 0; first < address_digits; first += digits_per_byte) {
        octets << QString::number(text.mid(first, digits_per_byte).toUInt(nullptr, 16));
    }
    return octets.join(QChar('.'));
}

QString cut_at_zero_byte(const QString& text) {
    for (qsizetype first = 0; first < text.size(); first += digits_per_byte) {
        if (QStringView(text).mid(first, digits_per_byte) == QLatin1String("00")) {
            return text.left(first);
        }
    }
    return text;
}

QString hex_to_text(const QString& text) {
    return QString::fromUtf8(QByteArray::fromHex(text.toLatin1()));
}

QByteArray hex_to_bytes(const QString& text) {
    QByteArray bytes;
    for (qsizetype first = 0; first < text.size(); first += digits_per_byte) {
        const uint value = QStringView(text).mid(first, digits_per_byte).toUInt(nullptr, 16);
        bytes += static_cast<char>(static_cast<unsigned char>(value));
    }
    return bytes;
}

QString cut_field(const QString& text, const Hex_Field& field) {
    if (field.first_digit > text.size()) {
        throw std::out_of_range("the text ends before the field begins");
    }
    return text.mid(field.first_digit, field.digits);
}
