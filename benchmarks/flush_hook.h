// SPDX-License-Identifier: MIT

#pragma once

/// Reports when a window's painted content has been sent to the screen. Qt's widgets do this with
/// QBackingStore::flush(). If this file is linked into the program, or preloaded, it gets that call
/// first and passes it on. So the measured code knows nothing about it.

/// Called after each flush; may be null.
extern "C" void (*flush_observer)(void* window);
