// SPDX-License-Identifier: MIT

#pragma once

#include <string>

class QComboBox;

/// Selects the item with the number in a decimal text, counting from 1. A text without a number
/// leaves the combo box unchanged and adds a log entry; an empty text does nothing.
void set_combo_from_text(QComboBox& combo, const std::string& text);
