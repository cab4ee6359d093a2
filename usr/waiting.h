// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

class QUdpSocket;

/// The ways in which the adapter code waits. They are in a separate file, so that a test can be
/// linked with its own implementation of time. No events are processed meanwhile.

/// Stops the calling thread.
void block_for_milliseconds(unsigned long milliseconds);

/// Stops the calling thread until a datagram waits on the socket, but at most for this time. It
/// uses no processor time.
void wait_for_datagram(const QUdpSocket& socket, int milliseconds);

/// The system's wall clock, in nanoseconds.
[[nodiscard]] qint64 read_wall_clock();
