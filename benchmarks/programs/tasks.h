// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What a program of this folder measures in itself once its window is shown. Each prints its
/// numbers, one "name number" per line, and then ends the program.

/// Runs the task: "window" has been measured at the start, "memory" and "idle" follow when the
/// window has become idle.
void carry_out_task(const QString& task, double milliseconds_to_window);
