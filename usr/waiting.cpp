// SPDX-License-Identifier: MIT

#include "usr/waiting.h"

#include <QThread>
#include <QUdpSocket>

#include <chrono>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <poll.h>
#endif

void block_for_milliseconds(unsigned long milliseconds) { QThread::msleep(milliseconds); }

// The system's own call: it emits no signal of the socket and needs no event loop, and Qt does not
// promise that waitForReadyRead() works on Windows.
void wait_for_datagram(const QUdpSocket& socket, int milliseconds) {
#ifdef Q_OS_WIN
    WSAPOLLFD watched{static_cast<SOCKET>(socket.socketDescriptor()), POLLRDNORM, 0};
    WSAPoll(&watched, 1, milliseconds);
#else
    pollfd watched{static_cast<int>(socket.socketDescriptor()), POLLIN, 0};
    poll(&watched, 1, milliseconds);
#endif
}

qint64 read_wall_clock() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}
