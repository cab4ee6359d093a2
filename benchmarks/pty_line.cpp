// SPDX-License-Identifier: MIT

#include "benchmarks/pty_line.h"

#include "benchmarks/measurements.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int max_wait_ms = 10'000;

/// One block of the received bytes; empty if nothing arrives in time.
QByteArray read_block(int file, int wait_ms) {
    std::array<char, 4096> block{};
    pollfd wait = {file, POLLIN, 0};
    const ssize_t count = poll(&wait, 1, wait_ms) == 1 ? read(file, block.data(), block.size()) : 0;
    return count > 0 ? QByteArray(block.data(), count) : QByteArray();
}

} // namespace

Pty_Line::Pty_Line() {
    master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    std::array<char, 64> slave_name{};
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 ||
        ptsname_r(master, slave_name.data(), slave_name.size()) != 0) {
        throw Measurement_Failed("no pseudo-terminal");
    }
    slave = open(slave_name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios attributes = {};
    tcgetattr(slave, &attributes);
    cfmakeraw(&attributes);
    tcsetattr(slave, TCSANOW, &attributes);
    name = QString::fromLocal8Bit(slave_name.data());
}

Pty_Line::~Pty_Line() {
    close(slave);
    close(master);
}

void Pty_Line::write(const QByteArray& bytes) const {
    qsizetype sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = ::write(master, bytes.constData() + sent,
                                      static_cast<std::size_t>(bytes.size() - sent));
        if (count <= 0) {
            return;
        }
        sent += count;
    }
}

bool Pty_Line::read_up_to(const QByteArray& text) const {
    QByteArray read;
    while (!read.contains(text)) {
        const QByteArray block = read_block(master, max_wait_ms);
        if (block.isEmpty()) {
            return false;
        }
        read += block;
    }
    return true;
}

void Pty_Line::drop_input() const {
    constexpr int no_wait = 0;
    while (!read_block(master, no_wait).isEmpty()) {
    }
}
