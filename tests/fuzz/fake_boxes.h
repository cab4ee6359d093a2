// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

/// The user of the fuzzers. A program that links this file shows no message box: each is confirmed
/// at once, after what happens while it is open.
namespace fake_boxes {

using Happening = std::function<void(const QString& text)>;

/// Runs while a box is open; it may throw.
void while_shown(const Happening& happening);

/// How many boxes have been shown since the last call of forget().
int count();
void forget();

} // namespace fake_boxes
