#pragma once

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <thread>

/// A thread that sends the same datagram to a port of the loopback as fast as it can, for a while,
/// and until some hundreds have left.
class Datagram_Flood {
public:
    Datagram_Flood(const QByteArray& datagram, quint16 port, std::chrono::milliseconds length);
    ~Datagram_Flood() { thread.join(); }
    Datagram_Flood(const Datagram_Flood&) = delete;
    Datagram_Flood& operator=(const Datagram_Flood&) = delete;

    /// How many have left so far.
    [[nodiscard]] int sent() const { return count; }

private:
    std::atomic<int> count = 0;
    std::thread thread;
};

/// The most memory that this process has ever held, in megabytes.
double peak_memory_mb();
