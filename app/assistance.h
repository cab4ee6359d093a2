// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// For people who use a keyboard alone or a screen reader, in any window or dialog of the program;
/// to be called once its form and its values are set.
///
///  - Each control has a name that a screen reader says; where a label stands beside it, that
///  label.
///  - Enter presses the button that goes on without changing a device, also while a field has the
///    focus.
///  - The focus starts where one types or chooses first. Tab leaves the layout's grid.
///
/// Controls are found by their object names. The connection indicator's name is its state, which
/// the left menu sets.
void assist_keyboard_and_screen_reader(QWidget& window);
