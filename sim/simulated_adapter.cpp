// SPDX-License-Identifier: MIT

#include "sim/simulated_adapter.h"

#include <algorithm>

namespace {

constexpr quint16 switch_port = 23;

// More than the tool ever writes before a carriage return.
constexpr qsizetype max_command = 1000;

} // namespace

Simulated_Adapter::Simulated_Adapter(const Adapter_State& state, QObject* parent)
    : QObject(parent), adapter_logic(state) {
    batch_timer.setSingleShot(true);
    batch_timer.setTimerType(Qt::PreciseTimer);
    batch_timer.setInterval(batch_pause);
    connect(&batch_timer, &QTimer::timeout, this, &Simulated_Adapter::send_switch_answers);
    connect(&switch_socket, &QUdpSocket::readyRead, this, &Simulated_Adapter::read_switch_port);
}

bool Simulated_Adapter::go_online() {
    go_offline();
    const QHostAddress address = adapter_logic.state().address;
    // The network's own socket listens on the same port.
    const auto shared = QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint;
    is_up = frame_socket.bind(address, configuration_port, shared) &&
            switch_socket.bind(address, switch_port);
    return is_up;
}

void Simulated_Adapter::go_offline() {
    is_up = false;
    frame_socket.close();
    switch_socket.close();
}

void Simulated_Adapter::take_frame(const QByteArray& frame, const QHostAddress& sender,
                                   quint16 sender_port) {
    if (!is_up) {
        return;
    }
    const Adapter_Reaction reaction = adapter_logic.take(frame);
    if (reaction.verdict == Adapter_Reaction::Verdict::not_for_us) {
        return;
    }
    if (delay.count() == 0) {
        send_answers(reaction.answers, sender, sender_port);
    } else {
        QTimer::singleShot(delay, Qt::PreciseTimer, this,
                           [=, this] { send_answers(reaction.answers, sender, sender_port); });
    }
    if (reaction.restarts) {
        restart();
    }
    emit frame_taken(frame, reaction);
}

void Simulated_Adapter::send_answers(const QByteArrayList& answers, const QHostAddress& to,
                                     quint16 port) {
    for (const QByteArray& answer : answers) {
        frame_socket.writeDatagram(answer, to, port);
    }
}

void Simulated_Adapter::restart() {
    go_offline();
    if (adapter_logic.faults().never_comes_back) {
        return;
    }
    const auto come_back = [this] {
        go_online();
        emit came_back();
    };
    if (time_away.count() == 0) {
        come_back();
    } else {
        QTimer::singleShot(time_away, Qt::PreciseTimer, this, come_back);
    }
}

void Simulated_Adapter::read_switch_port() {
    while (switch_socket.hasPendingDatagrams()) {
        QByteArray bytes(switch_socket.pendingDatagramSize(), '\0');
        switch_socket.readDatagram(bytes.data(), bytes.size(), &switch_peer, &switch_peer_port);
        take_switch_bytes(bytes);
    }
}

void Simulated_Adapter::take_switch_bytes(const QByteArray& bytes) {
    for (const char byte : bytes) {
        if (byte != '\r') {
            if (unfinished_command.size() < max_command) {
                unfinished_command += byte;
            }
            continue;
        }
        const QByteArray command = unfinished_command;
        unfinished_command.clear();
        if (switch_answer) {
            switch_output += switch_answer(command);
        }
        emit switch_command_taken(command);
    }
    batch_timer.start();
}

void Simulated_Adapter::send_switch_answers() {
    const QByteArray output = switch_output;
    switch_output.clear();
    send_from_switch(output);
}

void Simulated_Adapter::send_from_switch(const QByteArray& bytes) {
    if (!is_up || switch_peer_port == 0) {
        return;
    }
    const qsizetype step = split_bytes > 0 ? split_bytes : std::max<qsizetype>(bytes.size(), 1);
    for (qsizetype first = 0; first < bytes.size(); first += step) {
        switch_socket.writeDatagram(bytes.mid(first, step), switch_peer, switch_peer_port);
    }
}
