// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>

/// Mouse and keyboard: real input events of the X server, like a user's.
///
/// All positions are pixels of the screen. Each function throws Step_Failed if the server can't be
/// reached.
namespace x11_input {

void click_at(const QPoint& spot);

/// Presses a key or a combination, by the names of the X server: "Return", "alt+F4".
void press_key(const QString& key);

/// Types into the widget that has the focus.
void type(const QString& text);

/// Presses the left button at one position and releases it at another, as soon as the program has
/// followed the drag to there.
void drag(const QPoint& from, const QPoint& to);

} // namespace x11_input
