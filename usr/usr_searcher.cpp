// SPDX-License-Identifier: MIT

#include "usr/usr_searcher.h"

#include "app/busy_cursor.h"
#include "app/message_box.h"
#include "usr/adapter_frames.h"
#include "usr/adapter_replies.h"
#include "usr/broadcast_interface.h"
#include "usr/search_stopwatch.h"
#include "usr/usr_log.h"
#include "usr/waiting.h"

#include <QByteArray>
#include <QDebug>
#include <QScopeGuard>

#include <algorithm>

namespace {

constexpr quint16 search_port = 4242;

constexpr unsigned long wait_for_first_replies_ms = 500;
constexpr double listening_ms = 1000;

// Replies queue in the socket while the thread sleeps. The system's default buffer holds some 270
// of them; this one, if the system grants it, holds several thousand.
constexpr int receive_buffer_bytes = 4 * 1024 * 1024;

// More adapters than any network has: a flood ends here instead of filling the memory.
constexpr qsizetype max_replies = 10'000;

bool has_wrong_length(const QString& reply_hex) { return reply_hex.size() != search_reply::digits; }

} // namespace

int USR_searcher::search_USR_in_network() {
    const Search_Outcome first = search_once();
    Search_Outcome last = first;
    while (last.found_wrong_length) {
        qCDebug(usr_log) << "a reply of wrong length: searching again";
        USR_replies.clear();
        last = search_once();
    }
    return first.found_any ? 1 : -1;
}

USR_searcher::Search_Outcome USR_searcher::search_once() {
    const auto search = [this] {
        if (!search_socket.bind(QHostAddress::AnyIPv4, search_port)) {
            qDebug() << "Error binding to port:" << search_socket.errorString();
            return Search_Outcome{};
        }
        const auto free_the_port = qScopeGuard([this] { search_socket.close(); });
        const Busy_Cursor busy;
        USR_addresses.clear();
        USR_replies.clear();
        search_socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption,
                                      receive_buffer_bytes);
        qCDebug(usr_log)
            << "search receive buffer in bytes:"
            << search_socket.socketOption(QAbstractSocket::ReceiveBufferSizeSocketOption).toInt();
        qCDebug(usr_log) << "broadcast goes by" << broadcast_interface();
        if (search_socket.writeDatagram(search_frame(), QHostAddress::Broadcast, adapter_port) <
            0) {
            qCDebug(usr_log) << "the search frame was not sent:" << search_socket.errorString();
        }
        block_for_milliseconds(wait_for_first_replies_ms);
        listen_for_replies();
        return Search_Outcome{
            !USR_replies.isEmpty(),
            std::any_of(USR_replies.cbegin(), USR_replies.cend(), has_wrong_length)};
    };
    return report_exceptions("Search USR error", search, Search_Outcome{});
}

void USR_searcher::listen_for_replies() {
    Search_stopwatch stopwatch;
    stopwatch.start();
    double left_ms = listening_ms;
    while (left_ms > 0) {
        read_waiting_replies();
        // If the clock is set back, the wait must not become longer.
        wait_for_datagram(search_socket, static_cast<int>(std::min(left_ms, listening_ms)));
        left_ms = listening_ms - stopwatch.elapsed_milliseconds();
    }
    stopwatch.stop();
}

void USR_searcher::read_waiting_replies() {
    const qint64 first_size = search_socket.pendingDatagramSize();
    if (first_size < 0) {
        return;
    }
    if (!can_take_more()) {
        // Dropped, because as long as it is pending each further wait would return at once.
        search_socket.readDatagram(nullptr, 0);
        return;
    }
    // One buffer for the whole pass, of the first datagram's size: a longer one behind it is cut,
    // and a shorter one keeps the tail of the one before.
    QByteArray buffer(first_size, '\0');
    while (search_socket.hasPendingDatagrams() && can_take_more()) {
        QHostAddress sender;
        quint16 sender_port = 0;
        search_socket.readDatagram(buffer.data(), buffer.size(), &sender, &sender_port);
        USR_addresses.append(std::make_shared<const QHostAddress>(sender));
        USR_replies.append(QString::fromLatin1(buffer.toHex()));
        qCDebug(usr_log) << "reply of" << buffer.size() << "bytes from" << sender << sender_port;
    }
}

bool USR_searcher::can_take_more() const {
    // One wrong length invalidates the whole search, so later replies need not be kept.
    return USR_replies.isEmpty() ||
           (!has_wrong_length(USR_replies.last()) && USR_replies.size() < max_replies);
}
