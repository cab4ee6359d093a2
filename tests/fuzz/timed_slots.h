// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fuzz/fuzz_window.h"

/// Lets time pass for a window, as the event loop does.
/// @param ended the process has ended already: nothing is called. Raised by the one slot that lets
///              an exception go on purpose, set_current_layout_from_buff(), when it does.
void pass_time(Fuzz_Window& window, int milliseconds, bool& ended);
