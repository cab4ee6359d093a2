// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

class QWidget;

/// Runs a step that interrupts the user, such as showing a message box. If no mouse button is down,
/// it runs at once. Otherwise it runs after the click: when the button is released, and a list or
/// message box that the click opened is closed. A message box that opened between press and release
/// would swallow the click and leave the button drawn pressed.
///
/// The step does not run if the widget's window is no longer shown by then, as it is closing.
void run_after_click(QWidget& asker, std::function<void()> step);
