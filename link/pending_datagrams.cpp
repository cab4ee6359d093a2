// SPDX-License-Identifier: MIT

#include "link/pending_datagrams.h"

#include <QUdpSocket>

#include <limits>

namespace {

/// IPv4 and UDP state a datagram's length in 16 bits.
constexpr qsizetype max_datagram_size = std::numeric_limits<quint16>::max();

/// The default of Linux for a socket is some 200 KB.
constexpr qsizetype max_bytes = 16'777'216;
constexpr int max_datagrams = 10'000;

/// @return the next datagram's length in the buffer, or -1 if there is none.
qint64 read_next(QUdpSocket& socket, QByteArray& buffer) {
    // Not hasPendingDatagrams() or pendingDatagramSize(): if a refusal is pending, they report
    // that there is nothing. A refusal is reported once, by the first call of any kind, so a
    // second read gets the datagram after it.
    const qint64 size = socket.readDatagram(buffer.data(), buffer.size());
    return size >= 0 ? size : socket.readDatagram(buffer.data(), buffer.size());
}

bool is_flood(const std::optional<QByteArray>& chunk) { return chunk && chunk->size() > max_bytes; }

} // namespace

std::optional<QByteArray> read_pending_datagrams(QUdpSocket& socket) {
    QByteArray buffer(max_datagram_size, Qt::Uninitialized);
    std::optional<QByteArray> chunk;
    for (int count = 0; count < max_datagrams && !is_flood(chunk); ++count) {
        const qint64 size = read_next(socket, buffer);
        if (size < 0) {
            break;
        }
        if (!chunk) {
            chunk.emplace();
        }
        chunk->append(buffer.constData(), size);
    }
    return chunk;
}
