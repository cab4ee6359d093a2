// SPDX-License-Identifier: MIT

#include "sim/switch_behind_adapter.h"

namespace {

void set_up(QTimer& timer) {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
}

} // namespace

Switch_Behind_Adapter::Switch_Behind_Adapter(Simulated_Adapter& carrier, Switch_Logic& unit,
                                             QObject* parent)
    : QObject(parent), adapter(carrier), switch_logic(unit) {
    set_up(batch_timer);
    set_up(pause_timer);
    connect(&batch_timer, &QTimer::timeout, this, &Switch_Behind_Adapter::answer);
    connect(&pause_timer, &QTimer::timeout, this, [this] {
        send_next();
        send_due();
    });
    adapter.set_switch([this](const QByteArray& command) { return take(command); });
}

/// Says nothing at once: what there is to say goes its own way.
QByteArray Switch_Behind_Adapter::take(const QByteArray& command) {
    gathered += switch_logic.answer(command);
    batch_timer.start(batch_pause);
    return {};
}

void Switch_Behind_Adapter::answer() {
    if (faults.disappearance) {
        adapter.go_offline();
    }
    for (const Timed_Chunk& chunk : plan_chunks(faults, gathered)) {
        outgoing.push_back(chunk);
    }
    gathered.clear();
    send_due();
}

void Switch_Behind_Adapter::send_due() {
    while (!outgoing.empty() && !pause_timer.isActive()) {
        if (outgoing.front().pause.count() > 0) {
            pause_timer.start(outgoing.front().pause);
            return;
        }
        send_next();
    }
}

void Switch_Behind_Adapter::send_next() {
    const QByteArray bytes = outgoing.front().bytes;
    outgoing.pop_front();
    adapter.send_from_switch(bytes);
}
