// SPDX-License-Identifier: MIT

#pragma once

#include "sim/adapter_logic.h"

#include <QObject>
#include <QTimer>
#include <QUdpSocket>

#include <chrono>
#include <functional>

/// The UDP port on which adapters take searches, logins and configuration frames.
constexpr quint16 configuration_port = 1901;

/// A serial adapter collects its serial input until there is a pause of this length.
constexpr std::chrono::milliseconds batch_pause{20};

/// The answer of a switch to a command, given without its carriage return.
using Switch_Answer = std::function<QByteArray(const QByteArray& command)>;

/// An adapter on the network: a unit with its own address, and the UDP port 23 with a switch behind
/// it. Runs in the event loop of the thread that created it. Searches and configuration frames are
/// broadcast, so they arrive through Adapter_Network.
class Simulated_Adapter : public QObject {
    Q_OBJECT

public:
    explicit Simulated_Adapter(const Adapter_State& state, QObject* parent = nullptr);

    Adapter_Logic& unit() { return adapter_logic; }
    [[nodiscard]] const Adapter_Logic& unit() const { return adapter_logic; }

    /// Connects to the network with the unit's address.
    /// @return false if that address is not available.
    bool go_online();
    void go_offline();
    [[nodiscard]] bool is_online() const { return is_up; }

    /// Before each answer to a frame.
    void set_delay(std::chrono::milliseconds new_delay) { delay = new_delay; }
    /// From an apply until the adapter is back; with 0 it is back at once.
    void set_time_away(std::chrono::milliseconds time) { time_away = time; }

    void set_switch(const Switch_Answer& answer) { switch_answer = answer; }
    /// Bytes of a switch's answer in one datagram; 0 puts all answers to a batch of commands in
    /// one.
    void set_split(int bytes) { split_bytes = bytes; }
    /// Sends unsolicited bytes of the switch to the last sender to port 23.
    void send_from_switch(const QByteArray& bytes);

    /// Handles a broadcast frame, unless the adapter is offline.
    void take_frame(const QByteArray& frame, const QHostAddress& sender, quint16 sender_port);

signals:
    /// A frame for this adapter, and the reaction to it.
    void frame_taken(const QByteArray& frame, const Adapter_Reaction& reaction);
    void switch_command_taken(const QByteArray& command);
    void came_back();

private:
    void send_answers(const QByteArrayList& answers, const QHostAddress& to, quint16 port);
    void restart();
    void read_switch_port();
    void take_switch_bytes(const QByteArray& bytes);
    void send_switch_answers();

    Adapter_Logic adapter_logic;
    Switch_Answer switch_answer;
    QUdpSocket frame_socket;  ///< the answers' source
    QUdpSocket switch_socket; ///< port 23
    QHostAddress switch_peer;
    quint16 switch_peer_port = 0;
    QByteArray unfinished_command;
    QByteArray switch_output;
    QTimer batch_timer; ///< the pause after which a batch of commands counts as complete
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds time_away{1000};
    int split_bytes = 0;
    bool is_up = false;
};
