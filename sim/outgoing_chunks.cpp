// SPDX-License-Identifier: MIT

#include "sim/outgoing_chunks.h"

#include <utility>

Outgoing_Chunks::Outgoing_Chunks(std::function<void(const QByteArray& bytes)> send_bytes)
    : send(std::move(send_bytes)) {
    pause_timer.setSingleShot(true);
    pause_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pause_timer, &QTimer::timeout, &pause_timer, [this] {
        send_next();
        send_due();
    });
}

void Outgoing_Chunks::add(const std::vector<Timed_Chunk>& more) {
    chunks.insert(chunks.end(), more.begin(), more.end());
    send_due();
}

void Outgoing_Chunks::drop_all() {
    pause_timer.stop();
    chunks.clear();
}

void Outgoing_Chunks::send_due() {
    while (!chunks.empty() && !pause_timer.isActive()) {
        if (chunks.front().pause.count() > 0) {
            pause_timer.start(chunks.front().pause);
            return;
        }
        send_next();
    }
}

void Outgoing_Chunks::send_next() {
    const QByteArray bytes = chunks.front().bytes;
    chunks.pop_front();
    send(bytes);
}
