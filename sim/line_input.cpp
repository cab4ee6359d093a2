// SPDX-License-Identifier: MIT

#include "sim/line_input.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <unistd.h>

Line_Input::Line_Input(QObject* parent)
    : QObject(parent), notifier(new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this)) {
    connect(notifier, &QSocketNotifier::activated, this, &Line_Input::read_more);
}

void Line_Input::read_more() {
    std::array<char, 4096> block = {};
    const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count > 0) {
        unfinished.append(block.data(), static_cast<qsizetype>(count));
    }
    const bool at_end = count <= 0;
    if (at_end) {
        notifier->setEnabled(false);
        unfinished += unfinished.isEmpty() ? "" : "\n";
    }
    qsizetype length = 0;
    while ((length = unfinished.indexOf('\n')) >= 0) {
        const QString text = QString::fromUtf8(unfinished.left(length));
        unfinished.remove(0, length + 1);
        emit line(text);
    }
    if (at_end) {
        emit ended();
    }
}
