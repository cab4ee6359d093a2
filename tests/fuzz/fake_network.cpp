// SPDX-License-Identifier: MIT

#include "tests/fuzz/fake_network.h"

#include <QNetworkProxyFactory>
#include <QUdpSocket>

#include <algorithm>
#include <cstring>
#include <map>
#include <sys/socket.h>

namespace {

struct Network {
    fake_network::Answerer answerer;
    std::map<const QUdpSocket*, QByteArrayList> waiting;
};

Network& the_network() {
    static Network network;
    return network;
}

QByteArrayList& waiting_for(const QUdpSocket* socket) { return the_network().waiting[socket]; }

} // namespace

void fake_network::start(const Answerer& answerer) {
    // The look-up of a proxy takes longer than everything else.
    QNetworkProxyFactory::setUseSystemConfiguration(false);
    the_network().answerer = answerer;
    the_network().waiting.clear();
}

// Replaces the C library's function: a socket of the tool counts as bound and has no port.
extern "C" int bind(int /*socket*/, const sockaddr* /*address*/, socklen_t /*size*/) noexcept {
    return 0;
}

// Replaces Qt's own function.

qint64 QUdpSocket::writeDatagram(const char* data, qint64 len, const QHostAddress& /*host*/,
                                 quint16 /*port*/) {
    // A search begins with a newly opened port: what was pending at the previous one is lost.
    constexpr char search_command = 1;
    constexpr qint64 command_at = 2;
    if (len > command_at && data[command_at] == search_command) {
        waiting_for(this).clear();
    }
    if (the_network().answerer) {
        waiting_for(this) += the_network().answerer(QByteArray(data, len));
    }
    return len;
}

bool QUdpSocket::hasPendingDatagrams() const { return !waiting_for(this).isEmpty(); }

qint64 QUdpSocket::pendingDatagramSize() const {
    return hasPendingDatagrams() ? waiting_for(this).constFirst().size() : -1;
}

qint64 QUdpSocket::readDatagram(char* data, qint64 maxlen, QHostAddress* host, quint16* port) {
    if (!hasPendingDatagrams()) {
        return -1;
    }
    // As the system does: what does not fit is lost, and the rest of the buffer is unchanged.
    const QByteArray datagram = waiting_for(this).takeFirst();
    const qint64 size = std::min<qint64>(maxlen, datagram.size());
    if (size > 0) {
        std::memcpy(data, datagram.constData(), static_cast<std::size_t>(size));
    }
    if (host != nullptr) {
        *host = fake_network::sender_address;
    }
    if (port != nullptr) {
        *port = fake_network::sender_port;
    }
    return size;
}
