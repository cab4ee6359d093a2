// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <functional>

/// The time of fast tests, linked in place of usr/waiting.cpp: blocking takes no time, and each
/// reading advances the clock by 10 ms. The test decides what happens on the network while the tool
/// is blocked.
namespace fake_waiting {

/// Resets everything: nothing happens while blocked, the counts are 0, and nothing fails.
void reset();

/// Runs instead of each blocking wait.
void while_blocked(const std::function<void()>& happening);

/// How often, and for how many milliseconds in total, the tool has blocked itself on purpose.
int block_count();
quint64 blocked_milliseconds();

/// Makes the next blocking wait throw.
void fail_at_next_block();

/// Runs once, when the clock is read; it may throw.
/// @param readings how many there are before that.
void at_clock_reading(int readings, const std::function<void()>& happening);

} // namespace fake_waiting
