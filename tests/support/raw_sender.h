// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QUdpSocket>

constexpr quint16 search_port = 4242;

/// Another program on the loopback that sends any datagram.
class Raw_Sender {
public:
    /// @return false if the datagram could not be sent.
    bool send(const QByteArray& datagram, quint16 port = search_port) {
        return socket.writeDatagram(datagram, QHostAddress::LocalHost, port) == datagram.size();
    }

private:
    QUdpSocket socket;
};
