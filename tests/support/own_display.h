// SPDX-License-Identifier: MIT

#pragma once

/// Whether this process already runs on the display that run_on_own_display() has created.
bool is_on_own_display();

/// Runs this program again, with its own X server and window manager, and prints its output.
/// Dragging needs both: without a display Qt delivers no drag.
/// @return its exit status; 1 if there is no server, no manager, or a crash.
int run_on_own_display(int argc, char** argv);
