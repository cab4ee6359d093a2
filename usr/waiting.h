#pragma once

#include <QtGlobal>

/// The two ways in which the adapter search meets time. They stand in a file of their own, and
/// nothing else does, so that a program may be linked with a time of its own instead.

/// Stops the calling thread; no event is served meanwhile.
void block_for_milliseconds(unsigned long milliseconds);

/// The system's wall clock, in nanoseconds.
[[nodiscard]] qint64 read_wall_clock();
