// SPDX-License-Identifier: MIT

#pragma once

/// Tells when a window's painted content has gone to the screen. Qt's widgets hand it over by
/// QBackingStore::flush(); whoever has this file in the program, or preloads it, gets that call
/// first and passes it on. So the code that is measured knows nothing of it.

/// Called after each hand-over; null for nobody.
extern "C" void (*flush_observer)(void* window);
