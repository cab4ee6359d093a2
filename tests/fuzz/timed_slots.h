// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fuzz/fuzz_window.h"

/// Lets time pass for a window, as the event loop does.
/// @param ended the process has ended already: nothing is called. Set by the one slot that
///              throws on purpose, set_current_layout_from_buff(), when it throws.
void pass_time(Fuzz_Window& window, int milliseconds, bool& ended);
