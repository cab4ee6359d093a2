// SPDX-License-Identifier: MIT

#include "sim/switch_behind_adapter.h"

Switch_Behind_Adapter::Switch_Behind_Adapter(Simulated_Adapter& carrier, Switch_Logic& unit,
                                             QObject* parent)
    : QObject(parent),
      adapter(carrier),
      switch_logic(unit),
      outgoing([this](const QByteArray& bytes) { adapter.send_from_switch(bytes); }) {
    batch_timer.setSingleShot(true);
    batch_timer.setTimerType(Qt::PreciseTimer);
    connect(&batch_timer, &QTimer::timeout, this, &Switch_Behind_Adapter::answer);
    adapter.set_switch([this](const QByteArray& command) { return take(command); });
}

/// Returns no answer at once: the answers are sent later, according to the plan.
QByteArray Switch_Behind_Adapter::take(const QByteArray& command) {
    gathered += switch_logic.answer(command);
    batch_timer.start(batch_pause);
    return {};
}

void Switch_Behind_Adapter::answer() {
    if (faults.disappearance) {
        adapter.go_offline();
    }
    const std::vector<Timed_Chunk> chunks = plan_chunks(faults, gathered);
    gathered.clear();
    outgoing.add(chunks);
}
