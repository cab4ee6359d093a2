// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>

/// The main window has a fixed size, which some screens have no room for, at their scaling.

/// How much smaller everything has to be drawn so that the main window and its frame fit into the
/// free area of a screen; 1 if they fit.
[[nodiscard]] double scale_that_fits(const QSize& free_area);

/// Sets the scale for the next application object, if the screen of the present one has too little
/// room. Qt takes a scale at the birth of that object only.
/// @return whether it has to be made again.
[[nodiscard]] bool scale_down_to_screen();
