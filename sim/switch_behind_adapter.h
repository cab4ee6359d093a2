// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"
#include "sim/outgoing_chunks.h"
#include "sim/simulated_adapter.h"
#include "sim/switch_logic.h"

#include <QObject>
#include <QTimer>

/// The switch behind an adapter's data port, which answers according to its fault plan. Its answers
/// to commands sent back to back are one answer, because the adapter collects them.
class Switch_Behind_Adapter : public QObject {
    Q_OBJECT

public:
    /// Connects the switch to the adapter. Adapter and unit must live longer than this object.
    Switch_Behind_Adapter(Simulated_Adapter& carrier, Switch_Logic& unit,
                          QObject* parent = nullptr);

    /// Applies to all answers from now on. A switch that disappears takes its adapter off the
    /// network.
    void set_faults(const Fault_Plan& plan) { faults = plan; }

private:
    QByteArray take(const QByteArray& command);
    void answer();

    Simulated_Adapter& adapter;
    Switch_Logic& switch_logic;
    Fault_Plan faults;
    QByteArray gathered;
    Outgoing_Chunks outgoing;
    QTimer batch_timer;
};
