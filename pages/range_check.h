// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QLineEdit;

/// Whether a line edit holds a decimal integer from low to high; a text that is no number counts as
/// 0. Otherwise warns the user with prefix, low, "-", high, and leaves the field as it is.
bool check_value_range(const QLineEdit& line_edit, const QString& prefix, int low, int high);

/// The same for a field that is being left. If a click leaves it, the box waits until that click
/// has done its work; none opens for a window that is being closed.
void check_left_field(QLineEdit& line_edit, const QString& prefix, int low, int high);
