// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// The datagrams of an input, in groups: each is one byte of length and that many bytes. The length
/// 255 marks the end of a group.
class Datagram_Input {
public:
    Datagram_Input(const unsigned char* data, std::size_t size)
        : rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)) {}

    [[nodiscard]] bool is_at_end() const { return rest.isEmpty(); }
    /// Whether the next group is empty.
    [[nodiscard]] bool is_empty_group_next() const {
        return rest.isEmpty() || rest.front() == group_end;
    }
    [[nodiscard]] QByteArrayList next_group() {
        QByteArrayList group;
        while (!is_empty_group_next()) {
            const qsizetype size = static_cast<unsigned char>(rest.front());
            group << take_datagram(size);
        }
        rest.remove(0, 1);
        return group;
    }

private:
    static constexpr char group_end = '\xff';
    /// From this value on, lengths count tens of bytes: a configuration has 260 bytes, and more
    /// must be possible.
    static constexpr qsizetype tens_from = 200;

    QByteArray take_datagram(qsizetype size) {
        const qsizetype wanted = size < tens_from ? size : (size - tens_from) * 10;
        const QByteArray datagram = rest.mid(1, wanted);
        rest.remove(0, 1 + wanted);
        return datagram;
    }

    QByteArray rest;
};
