// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class QUdpSocket;

/// The ways in which the adapter code waits. They are in a file of their own, and nothing else is,
/// so that a program may be linked with a time of its own instead. No event is served meanwhile.

/// Stops the calling thread.
void block_for_milliseconds(unsigned long milliseconds);

/// Stops the calling thread until a datagram waits on the socket, but no longer than this. It takes
/// no processor time.
void wait_for_datagram(const QUdpSocket& socket, int milliseconds);

/// The system's wall clock, in nanoseconds.
[[nodiscard]] qint64 read_wall_clock();
