// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

/// The main window has a fixed size, which is too large for some screens at their scaling.

/// The factor by which everything must be scaled down so that the main window and its frame fit
/// into the free area of a screen; 1 if they fit.
[[nodiscard]] double scale_that_fits(const QSize& free_area);

/// Sets the scale factor for the next application object if the screen of the current one is too
/// small. Qt reads the scale factor only when this object is created.
/// @return whether the object must be created again.
[[nodiscard]] bool scale_down_to_screen();
