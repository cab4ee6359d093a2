#include "sim/adapter_switch.h"

namespace {

void set_up(QTimer& timer) {
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
}

} // namespace

Adapter_Switch::Adapter_Switch(Simulated_Adapter& carrier, Switch_Unit& unit, QObject* parent)
    : QObject(parent), adapter(carrier), switch_unit(unit) {
    set_up(batch_timer);
    set_up(pause_timer);
    connect(&batch_timer, &QTimer::timeout, this, &Adapter_Switch::answer);
    connect(&pause_timer, &QTimer::timeout, this, [this] {
        send_next();
        send_due();
    });
    adapter.set_switch([this](const QByteArray& command) { return take(command); });
}

/// Says nothing at once: what there is to say goes its own way.
QByteArray Adapter_Switch::take(const QByteArray& command) {
    gathered += switch_unit.answer(command);
    batch_timer.start(batch_pause);
    return {};
}

void Adapter_Switch::answer() {
    if (faults.disappearance) {
        adapter.go_offline();
    }
    for (const Timed_Chunk& chunk : plan_chunks(faults, gathered)) {
        outgoing.push_back(chunk);
    }
    gathered.clear();
    send_due();
}

void Adapter_Switch::send_due() {
    while (!outgoing.empty() && !pause_timer.isActive()) {
        if (outgoing.front().pause.count() > 0) {
            pause_timer.start(outgoing.front().pause);
            return;
        }
        send_next();
    }
}

void Adapter_Switch::send_next() {
    const QByteArray bytes = outgoing.front().bytes;
    outgoing.pop_front();
    adapter.send_from_switch(bytes);
}
