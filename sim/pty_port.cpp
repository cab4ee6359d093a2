// SPDX-License-Identifier: MIT

#include "sim/pty_port.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {

/// Puts the line in the state of a serial port: bytes pass as they are, in both directions.
void make_raw(int terminal) {
    termios attributes = {};
    tcgetattr(terminal, &attributes);
    cfmakeraw(&attributes);
    tcsetattr(terminal, TCSANOW, &attributes);
}

} // namespace

Pty_Port::Pty_Port(QObject* parent) : QObject(parent) {
    master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 64> name = {};
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 ||
        ptsname_r(master, name.data(), name.size()) != 0) {
        qFatal("No pseudo-terminal: %s", std::strerror(errno));
    }
    slave = ::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave < 0) {
        qFatal("Cannot open %s: %s", name.data(), std::strerror(errno));
    }
    make_raw(slave);
    slave_name = QString::fromLocal8Bit(name.data());

    read_notifier = new QSocketNotifier(master, QSocketNotifier::Read, this);
    connect(read_notifier, &QSocketNotifier::activated, this, &Pty_Port::read_incoming);
    write_notifier = new QSocketNotifier(master, QSocketNotifier::Write, this);
    write_notifier->setEnabled(false);
    connect(write_notifier, &QSocketNotifier::activated, this, &Pty_Port::write_pending);
}

Pty_Port::~Pty_Port() { close(); }

void Pty_Port::write(const QByteArray& bytes) {
    if (!is_open()) {
        return;
    }
    unwritten += bytes;
    write_pending();
}

void Pty_Port::write_pending() {
    while (is_open() && !unwritten.isEmpty()) {
        const ssize_t count =
            ::write(master, unwritten.constData(), static_cast<std::size_t>(unwritten.size()));
        if (count <= 0) {
            break;
        }
        unwritten.remove(0, count);
    }
    write_notifier->setEnabled(is_open() && !unwritten.isEmpty());
}

void Pty_Port::read_incoming() {
    QByteArray bytes;
    std::array<char, 4096> block = {};
    for (;;) {
        const ssize_t count = ::read(master, block.data(), block.size());
        if (count <= 0) {
            break;
        }
        bytes.append(block.data(), static_cast<qsizetype>(count));
    }
    if (bytes.isEmpty()) {
        return;
    }
    // The tool claims the line for itself. A tool that was killed cannot give it back, and since
    // the slave is held open here, the kernel would keep the claim.
    ioctl(slave, TIOCNXCL);
    emit received(bytes);
}

void Pty_Port::close() {
    if (!is_open()) {
        return;
    }
    read_notifier->setEnabled(false);
    write_notifier->setEnabled(false);
    ::close(master);
    ::close(slave);
    master = -1;
    slave = -1;
    unwritten.clear();
}
