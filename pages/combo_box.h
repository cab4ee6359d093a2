// SPDX-License-Identifier: MIT

#pragma once

#include <string>

class QComboBox;

/// Sets a combo box to the item that a decimal text numbers, counting from 1. A text without a
/// number leaves the box as it is and one entry in the event log; an empty text does nothing.
void set_combo_from_text(QComboBox& combo, const std::string& text);
