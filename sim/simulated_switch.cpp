// SPDX-License-Identifier: MIT

#include "sim/simulated_switch.h"

Simulated_Switch::Simulated_Switch(Switch_Model model, QObject* parent)
    : QObject(parent), switch_logic(model) {
    pause_timer.setSingleShot(true);
    pause_timer.setTimerType(Qt::PreciseTimer);
    connect(&pause_timer, &QTimer::timeout, this, [this] {
        send_next();
        send_due();
    });
    connect(&port, &Pty_Port::received, this, &Simulated_Switch::take_bytes);
}

QString Simulated_Switch::port_name() const { return device_name().mid(QString("/dev/").size()); }

void Simulated_Switch::clear_record() {
    all_bytes.clear();
    commands.clear();
}

void Simulated_Switch::take_bytes(const QByteArray& bytes) {
    all_bytes += bytes;
    for (const char byte : bytes) {
        if (byte != '\r') {
            unfinished_command += byte;
            continue;
        }
        const QByteArray command = unfinished_command;
        unfinished_command.clear();
        commands.append(command);
        obey(command);
        emit command_received(command);
    }
}

void Simulated_Switch::obey(const QByteArray& command) {
    if (!is_on_line()) {
        return;
    }
    const QByteArray answer = switch_logic.answer(command);
    if (faults.disappearance) {
        vanish();
        return;
    }
    for (const Timed_Chunk& chunk : plan_chunks(faults, answer)) {
        outgoing.push_back(chunk);
    }
    send_due();
}

void Simulated_Switch::send(const QByteArray& bytes) {
    if (!is_on_line()) {
        return;
    }
    outgoing.push_back({std::chrono::milliseconds(0), bytes});
    send_due();
}

void Simulated_Switch::send_due() {
    while (!outgoing.empty() && !pause_timer.isActive()) {
        if (outgoing.front().pause.count() > 0) {
            pause_timer.start(outgoing.front().pause);
            return;
        }
        send_next();
    }
}

void Simulated_Switch::send_next() {
    const QByteArray bytes = outgoing.front().bytes;
    outgoing.pop_front();
    port.write(bytes);
    emit sent(bytes);
}

void Simulated_Switch::vanish() {
    if (!is_on_line()) {
        return;
    }
    pause_timer.stop();
    outgoing.clear();
    port.close();
    emit vanished();
}
