// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/virtual_time.h"

#include <QByteArray>
#include <QList>

/// A UDP datagram as it went over the loopback.
struct Captured_Datagram {
    QString from; ///< as "127.0.0.1.4242"
    QString to;   ///< as "255.255.255.255.1901"
    QByteArray payload;
};

/// Captures what the kernel sends over the loopback of the test's network, below UDP. Needs root in
/// that network. Time is real as long as it exists.
class Packet_Capture {
public:
    /// Captures from now on; ends the test program if it can't.
    Packet_Capture();
    ~Packet_Capture();
    Packet_Capture(const Packet_Capture&) = delete;
    Packet_Capture& operator=(const Packet_Capture&) = delete;

    /// What has been sent so far, in order.
    QList<Captured_Datagram> finish();

private:
    const Real_Time time;
    int packet_socket;
};
