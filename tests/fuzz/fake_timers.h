// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QObject>

#include <functional>

/// The clock of the fuzzers. A program that links this file has no waiting timers: its
/// QTimer::singleShot() for slots by name only records the request, and a fuzzer lets time pass.
namespace fake_timers {

/// Does what the event loop does when a timer is due: calls the slot of the receiver.
using Slot_Call = std::function<void(QObject& receiver, const QByteArray& slot)>;

/// Whether Qt's own function was replaced. In another version of Qt its callers may call another
/// function.
[[nodiscard]] bool are_in_place();

/// Drops all pending timers.
void forget();

/// Lets time pass and calls what becomes due, in order of time.
void pass(int milliseconds, const Slot_Call& call);

} // namespace fake_timers
