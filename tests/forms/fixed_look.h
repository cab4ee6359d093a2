// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Fixes what a desktop would set, so that sizes are the same everywhere: the Fusion style, and a
/// text font as the program sets it. False if that font is not installed.
bool use_fixed_look(const QString& family = "Liberation Sans");
