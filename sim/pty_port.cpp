// SPDX-License-Identifier: MIT

#include "sim/pty_port.h"

#include <QSocketNotifier>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

/// Puts the line in the state of a serial port: bytes pass unchanged, in both directions.
void make_raw(int terminal) {
    termios attributes = {};
    tcgetattr(terminal, &attributes);
    cfmakeraw(&attributes);
    tcsetattr(terminal, TCSANOW, &attributes);
}

std::string open_terminal(int& master) {
    master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 64> name = {};
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 ||
        ptsname_r(master, name.data(), name.size()) != 0) {
        qFatal("No pseudo-terminal: %s", std::strerror(errno));
    }
    return name.data();
}

/// Whether QSerialPort's lock file of a line exists, such as /var/lock/LCK..pts_3.
bool has_lock_file(const std::string& name) {
    std::string line = name.substr(std::strlen("/dev/"));
    std::replace(line.begin(), line.end(), '/', '_');
    return access(("/var/lock/LCK.." + line).c_str(), F_OK) == 0;
}

/// A tool closes a line before it removes the lock file. In between the system may give the same
/// name to a new line, which nobody could open then.
std::string open_unclaimed_terminal(int& master) {
    std::vector<int> claimed;
    std::string name = open_terminal(master);
    while (has_lock_file(name)) {
        claimed.push_back(master);
        name = open_terminal(master);
    }
    for (const int other : claimed) {
        ::close(other);
    }
    return name;
}

} // namespace

Pty_Port::Pty_Port(QObject* parent) : QObject(parent) {
    const std::string name = open_unclaimed_terminal(master);
    slave = ::open(name.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave < 0) {
        qFatal("Cannot open %s: %s", name.c_str(), std::strerror(errno));
    }
    make_raw(slave);
    slave_name = QString::fromLocal8Bit(name.c_str());

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
    // The tool takes exclusive access to the line. A tool that was killed cannot release it, and
    // since the slave is kept open here, the kernel would not release it either.
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
