// SPDX-License-Identifier: MIT

#include "tests/support/hang_up.h"

#include <QSerialPort>

#include <poll.h>

bool is_hung_up(const QSerialPort& port) {
    pollfd line{.fd = static_cast<int>(port.handle()), .events = 0, .revents = 0};
    return poll(&line, 1, 0) == 1 && (line.revents & POLLHUP) != 0;
}
