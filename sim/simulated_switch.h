// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"
#include "sim/outgoing_chunks.h"
#include "sim/pty_port.h"
#include "sim/switch_logic.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QObject>
#include <QString>

/// A whole simulated switch: a unit on a pseudo-terminal that answers commands according to its
/// fault plan. Runs in the event loop of the thread that created it, so a test can run it in its
/// own.
///
/// Answers go out strictly one after the other: the delay of the second begins when the first has
/// been sent.
class Simulated_Switch : public QObject {
    Q_OBJECT

public:
    explicit Simulated_Switch(Switch_Model model = Switch_Model::lite, QObject* parent = nullptr);

    /// The name to list, such as "/dev/pts/7".
    const QString& device_name() const { return port.device_name(); }

    /// The name under which the tool shows the port, such as "pts/7".
    QString port_name() const;

    Switch_Logic& unit() { return switch_logic; }
    const Switch_Logic& unit() const { return switch_logic; }

    /// Sets a new plan for the answers to all commands from now on. What has been planned before is
    /// still sent.
    void set_faults(const Fault_Plan& plan) { faults = plan; }
    const Fault_Plan& fault_plan() const { return faults; }

    /// Every byte that has arrived since the start or the last clear_record().
    const QByteArray& received_bytes() const { return all_bytes; }

    /// The commands among them, without their carriage returns. A command counts when its carriage
    /// return has arrived.
    const QByteArrayList& received_commands() const { return commands; }

    void clear_record();

    /// Sends unsolicited bytes, without any fault, after the pending answers.
    void send(const QByteArray& bytes);

    /// Puts all on a channel, as the unit's own hotkey does, and sends the notice "**M".
    void press_hotkey(int channel) { send(switch_logic.notice_both(channel)); }

    /// Disconnects from the line for good, without sending anything.
    void vanish();

    bool is_on_line() const { return port.is_open(); }

    /// Whether every answer has been passed to the line.
    bool all_sent() const { return outgoing.empty() && port.all_written(); }

signals:
    /// A command has arrived and been executed; its answer may still be pending.
    void command_received(const QByteArray& command);

    /// A piece of an answer, or of the bytes of send(), has been passed to the line.
    void sent(const QByteArray& bytes);

    /// The unit has disconnected from the line.
    void vanished();

private:
    void take_bytes(const QByteArray& bytes);
    void obey(const QByteArray& command);

    Pty_Port port;
    Switch_Logic switch_logic;
    Fault_Plan faults;
    QByteArray all_bytes;
    QByteArrayList commands;
    QByteArray unfinished_command;
    Outgoing_Chunks outgoing;
};
