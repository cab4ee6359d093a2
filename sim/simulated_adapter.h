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

/// A serial adapter gathers what its serial side says until that side pauses so long.
constexpr std::chrono::milliseconds batch_pause{20};

/// What a switch says to a command, given without its carriage return.
using Switch_Answer = std::function<QByteArray(const QByteArray& command)>;

/// An adapter on the network: a unit that speaks from its own address, and the UDP port 23 behind
/// which a switch sits. Works in the event loop of the thread that made it. Searches and
/// configuration frames are broadcast, so they come by way of Adapter_Network.
class Simulated_Adapter : public QObject {
    Q_OBJECT

public:
    explicit Simulated_Adapter(const Adapter_State& state, QObject* parent = nullptr);

    Adapter_Logic& unit() { return adapter_logic; }
    [[nodiscard]] const Adapter_Logic& unit() const { return adapter_logic; }

    /// Goes on the network under the unit's address.
    /// @return false if that address can't be had.
    bool go_online();
    void go_offline();
    [[nodiscard]] bool is_online() const { return is_up; }

    /// Before each answer to a frame.
    void set_delay(std::chrono::milliseconds new_delay) { delay = new_delay; }
    /// Between an apply and coming back; 0 comes back at once.
    void set_time_away(std::chrono::milliseconds time) { time_away = time; }

    void set_switch(const Switch_Answer& answer) { switch_answer = answer; }
    /// Bytes of a switch's answer in one datagram; 0 puts all answers to a batch of commands in
    /// one.
    void set_split(int bytes) { split_bytes = bytes; }
    /// Sends unasked bytes of the switch to whoever spoke to port 23 last.
    void send_from_switch(const QByteArray& bytes);

    /// Makes something of a broadcast frame, unless it is off the network.
    void take_frame(const QByteArray& frame, const QHostAddress& sender, quint16 sender_port);

signals:
    /// A frame that was meant for this adapter, and what it made of it.
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
