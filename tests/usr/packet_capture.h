#pragma once

#include "tests/support/virtual_time.h"

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QTemporaryDir>

/// A UDP datagram as tcpdump has read it off the loopback.
struct Captured_Datagram {
    QString from; ///< as "127.0.0.1.4242"
    QString to;   ///< as "255.255.255.255.1901"
    QByteArray payload;
};

/// tcpdump on the loopback of the test's network, so that something that is not our code looks at
/// what goes over the wire. Time is real as long as it stands.
class Packet_Capture {
public:
    /// Starts it and waits until it listens; ends the test program if it can't.
    Packet_Capture();

    /// Ends it and has it decode what it has seen, in order.
    QList<Captured_Datagram> finish();

private:
    const Real_Time time;
    QTemporaryDir place;
    QProcess tcpdump;
};
