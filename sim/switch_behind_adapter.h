// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"
#include "sim/outgoing_chunks.h"
#include "sim/simulated_adapter.h"
#include "sim/switch_logic.h"

#include <QObject>
#include <QTimer>

/// The switch behind an adapter's data port, which answers as well or as badly as its fault plan
/// says. What it says to commands sent back to back is one answer, for the adapter gathers it.
class Switch_Behind_Adapter : public QObject {
    Q_OBJECT

public:
    /// Takes its place behind the adapter, which has to live longer, as the unit has.
    Switch_Behind_Adapter(Simulated_Adapter& carrier, Switch_Logic& unit,
                          QObject* parent = nullptr);

    /// For all answers from now on. Who disappears takes the adapter off the network with him.
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
