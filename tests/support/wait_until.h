// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

/// Processes events until the condition holds, and checks it after each round of events and at
/// least every 10 ms. Unlike QTest::qWaitFor it never sleeps while events are waiting, so that a
/// fast line is read at its speed. Also processes deferred deletions.
/// @param milliseconds how long to wait at most.
/// @return whether the condition holds.
[[nodiscard]] bool wait_until(const std::function<bool()>& condition, int milliseconds = 5000);

/// Processes events for a while.
/// @return how often the event loop woke up: about once in 10 ms if nothing else happens, and as
///         often as the processor can if a descriptor is ready all the time.
[[nodiscard]] int count_event_rounds(int milliseconds);
