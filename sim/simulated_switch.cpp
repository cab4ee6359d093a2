// SPDX-License-Identifier: MIT

#include "sim/simulated_switch.h"

Simulated_Switch::Simulated_Switch(Switch_Model model, QObject* parent)
    : QObject(parent), switch_logic(model), outgoing([this](const QByteArray& bytes) {
          port.write(bytes);
          emit sent(bytes);
      }) {
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
    outgoing.add(plan_chunks(faults, answer));
}

void Simulated_Switch::send(const QByteArray& bytes) {
    if (!is_on_line()) {
        return;
    }
    outgoing.add({{std::chrono::milliseconds(0), bytes}});
}

void Simulated_Switch::vanish() {
    if (!is_on_line()) {
        return;
    }
    outgoing.drop_all();
    port.close();
    emit vanished();
}
