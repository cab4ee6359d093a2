// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <atomic>
#include <limits>
#include <thread>

/// A thread that sends the same datagram to a port of the loopback as fast as it can, a given
/// number of times, or as long as this object exists.
class Datagram_Flood {
public:
    static constexpr int endless = std::numeric_limits<int>::max();

    Datagram_Flood(const QByteArray& datagram, quint16 port, int total);
    ~Datagram_Flood();
    Datagram_Flood(const Datagram_Flood&) = delete;
    Datagram_Flood& operator=(const Datagram_Flood&) = delete;

    /// Blocks until this many more have been sent, or all.
    void wait_for_more(int datagrams) const;

private:
    const int total_count;
    std::atomic<int> sent_count = 0;
    std::atomic<bool> is_stopped = false;
    std::thread thread;
};

/// The peak memory of this process, in megabytes.
double peak_memory_mb();
