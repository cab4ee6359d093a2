// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

/// Fills the widgets that show nothing before a unit has answered, and sets what every window's
/// constructor sets in its form: the page buttons, the refresh icon, the grid.
void fill_with_samples(QWidget& form);
