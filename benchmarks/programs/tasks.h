// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What a program of this folder measures in itself once its window stands. Each prints its
/// numbers, one "name number" a line, and then ends the program.

/// Does what the name asks for: "window" has been measured on the way, "memory" and "idle" follow
/// when the window has come to rest.
void carry_out_task(const QString& task, double milliseconds_to_window);
