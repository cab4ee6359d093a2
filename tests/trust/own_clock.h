#pragma once

#include <chrono>

/// The monotonic clock of the main thread of the program that this is linked into, on which every
/// timer of Qt there runs. It goes as the machine's, and can be put forward: a wait of the product
/// keeps its length and its place among the other waits, and takes no real time.
namespace own_clock {

/// Puts the clock forward. Timers that have become due fire with the next events.
void leap(std::chrono::milliseconds time);

} // namespace own_clock
