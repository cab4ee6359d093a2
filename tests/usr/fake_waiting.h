// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <functional>

/// The time of fast tests, linked in place of usr/waiting.cpp: blocking takes no time of its own,
/// and the clock goes on by 10 ms each time it is read. What happens on the network while the tool
/// is blocked is up to the test.
namespace fake_waiting {

/// Back to how it starts: nothing happens while blocked, the counts are 0, and nothing fails.
void reset();

/// Runs in the place of each blocking wait.
void while_blocked(const std::function<void()>& happening);

/// How often, and for how many milliseconds together, the tool has blocked itself on purpose.
int block_count();
quint64 blocked_milliseconds();

/// Makes the coming blocking wait throw.
void fail_at_next_block();

/// Runs once, when the clock is read; it may throw.
/// @param readings how many go by before that.
void at_clock_reading(int readings, const std::function<void()>& happening);

} // namespace fake_waiting
