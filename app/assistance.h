// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

/// Makes a window or dialog usable with the keyboard alone and with a screen reader. Call it when
/// the form is built and its values are set.
///
///  - Each control has a name that a screen reader says. If the control has a label, this is the
///  name.
///  - Enter presses the button that continues without changing a device, also while a field has the
///    focus.
///  - The focus starts where the user types or chooses first. Tab leaves the layout's grid.
///
/// Controls are found by their object names. The name of the connection indicator is its state,
/// which the left menu sets.
void assist_keyboard_and_screen_reader(QWidget& window);
