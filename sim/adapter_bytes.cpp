// SPDX-License-Identifier: MIT

#include "sim/adapter_bytes.h"

#include <QtEndian>

#include <algorithm>

QByteArray filled_up(const QByteArray& text, qsizetype size) {
    return text.leftJustified(size, '\0', true);
}

QByteArray reversed(const QByteArray& bytes) {
    QByteArray turned = bytes;
    std::reverse(turned.begin(), turned.end());
    return turned;
}

QByteArray bytes_of(const QHostAddress& address) {
    QByteArray bytes(4, '\0');
    qToBigEndian(address.toIPv4Address(), bytes.data());
    return bytes;
}

QHostAddress address_from(const QByteArray& reversed_bytes) {
    return QHostAddress(qFromLittleEndian<quint32>(filled_up(reversed_bytes, 4).constData()));
}

QString frame_error(const QByteArray& frame, qsizetype size, int length_byte) {
    if (frame.size() != size) {
        return QString("%1 bytes instead of %2").arg(frame.size()).arg(size);
    }
    if (static_cast<unsigned char>(frame.at(1)) != length_byte) {
        return "a wrong length byte";
    }
    unsigned sum = 0;
    for (qsizetype i = 1; i < size - 1; ++i) {
        sum += static_cast<unsigned char>(frame.at(i));
    }
    if (static_cast<unsigned char>(frame.back()) != sum % 256) {
        return "a wrong checksum";
    }
    return {};
}
