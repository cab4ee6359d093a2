// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QObject>

#include <functional>

/// The clock of the fuzzers. A program that links this file has no waiting timers: its
/// QTimer::singleShot() for slots by name keeps what it is asked for, and a fuzzer lets time pass.
namespace fake_timers {

/// Does what the event loop does when a timer is due: calls the slot of the receiver.
using Slot_Call = std::function<void(QObject& receiver, const QByteArray& slot)>;

/// Whether Qt's own function was replaced. Another version of Qt may lead its callers another way.
[[nodiscard]] bool are_in_place();

/// Drops all timers that wait.
void forget();

/// Lets time pass and calls what falls due, in the order of its times.
void pass(int milliseconds, const Slot_Call& call);

} // namespace fake_timers
