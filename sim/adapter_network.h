// SPDX-License-Identifier: MIT

#pragma once

#include "sim/simulated_adapter.h"

#include <QObject>
#include <QUdpSocket>

#include <memory>
#include <vector>

/// The simulated adapters of one network: reads the broadcast frames from the configuration port
/// and passes each to all of them, in the order in which they were added.
class Adapter_Network : public QObject {
    Q_OBJECT

public:
    explicit Adapter_Network(QObject* parent = nullptr);

    /// Whether this process is cut off from every real network: no interface but the loopback is
    /// up, or a preloaded library keeps it there. Nothing is bound or sent elsewhere.
    static bool is_private();

    /// Listens for frames.
    /// @return false if the network is not private, or the port is not available.
    bool start();

    /// Adds an adapter and connects it to the network. Check its is_online().
    Simulated_Adapter& add(const Adapter_State& state);

    /// The first adapter's state with its own addresses and its MAC address counted up.
    static Adapter_State numbered(const Adapter_State& first, int number);

    [[nodiscard]] const std::vector<std::unique_ptr<Simulated_Adapter>>& adapters() const {
        return all_adapters;
    }

    /// Processes all received frames, without an event loop.
    /// @return how many there were.
    int serve();

signals:
    void frame_received(const QByteArray& frame, const QHostAddress& sender, quint16 sender_port);

private:
    QUdpSocket listener;
    std::vector<std::unique_ptr<Simulated_Adapter>> all_adapters;
};
