// SPDX-License-Identifier: MIT

#include "usr/broadcast_interface.h"

#include "usr/usr_searcher.h"

#include <QNetworkInterface>
#include <QUdpSocket>

QString broadcast_interface() {
    // The system chooses a route when a socket is connected. The socket's own address shows which
    // one.
    QUdpSocket probe;
    probe.connectToHost(QHostAddress(QHostAddress::Broadcast), adapter_port);
    if (probe.state() != QAbstractSocket::ConnectedState) {
        return "no interface: " + probe.errorString();
    }
    const QHostAddress own = probe.localAddress();
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& interface : interfaces) {
        const QList<QNetworkAddressEntry> entries = interface.addressEntries();
        for (const QNetworkAddressEntry& entry : entries) {
            if (entry.ip() == own) {
                return interface.name() + ' ' + own.toString();
            }
        }
    }
    return "an unknown interface, " + own.toString();
}
