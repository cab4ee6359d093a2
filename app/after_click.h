// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QWidget;

/// Runs a step that interrupts the user, such as showing a box. At once if no mouse button is down.
/// Otherwise once the click has done its work: the button is up again, and what the click has
/// opened is closed again, a list or a box. A box that opened between press and release would
/// swallow the click and leave the button drawn pressed.
///
/// Nothing runs if the asking widget's window is no longer shown by then: it is being closed.
void run_after_click(QWidget& asker, std::function<void()> step);
