// SPDX-License-Identifier: MIT

#include "tests/network/stalled_connection.h"

#include <QAbstractSocket>
#include <QHostAddress>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <utility>

// The linker gives these names to Qt's own function and to its replacement.
void connect_really(
    QAbstractSocket* socket, const QHostAddress& address, quint16 port,
    QIODevice::OpenMode mode) __asm__("__real__"
                                      "ZN15QAbstractSocket13connectToHostERK12QHostAddresst6QFlagsI"
                                      "N13QIODeviceBase12OpenModeFlagEE");
void connect_or_stall(
    QAbstractSocket* socket, const QHostAddress& address, quint16 port,
    QIODevice::OpenMode mode) __asm__("__wrap__"
                                      "ZN15QAbstractSocket13connectToHostERK12QHostAddresst6QFlagsI"
                                      "N13QIODeviceBase12OpenModeFlagEE");

namespace {

bool next_stalls = false;

/// A descriptor whose connection stays pending for ever: nobody accepts from a full queue.
int descriptor_on_its_way() {
    const int busy = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const any_address = reinterpret_cast<sockaddr*>(&address);
    if (bind(busy, any_address, length) != 0 || listen(busy, 0) != 0 ||
        getsockname(busy, any_address, &length) != 0) {
        return -1;
    }
    int last = -1;
    for (int call = 0; call < 4; ++call) {
        last = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        static_cast<void>(connect(last, any_address, length));
    }
    return last;
}

} // namespace

void stalled_connection::stall_next() { next_stalls = true; }

void connect_or_stall(QAbstractSocket* socket, const QHostAddress& address, quint16 port,
                      QIODevice::OpenMode mode) {
    if (std::exchange(next_stalls, false)) {
        socket->setSocketDescriptor(descriptor_on_its_way(), QAbstractSocket::ConnectingState,
                                    mode);
    } else {
        connect_really(socket, address, port, mode);
    }
}
