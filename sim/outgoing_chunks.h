// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"

#include <QTimer>

#include <deque>
#include <functional>
#include <vector>

/// What a unit still has to send. The pieces are sent strictly one after the other: the pause of
/// one begins when the one before it has been sent. Those without a pause are sent at once.
class Outgoing_Chunks {
public:
    /// @param send_bytes passes one piece to the line.
    explicit Outgoing_Chunks(std::function<void(const QByteArray& bytes)> send_bytes);

    void add(const std::vector<Timed_Chunk>& more);
    void drop_all();
    bool empty() const { return chunks.empty(); }

private:
    void send_due();
    void send_next();

    std::function<void(const QByteArray&)> send;
    std::deque<Timed_Chunk> chunks;
    QTimer pause_timer;
};
