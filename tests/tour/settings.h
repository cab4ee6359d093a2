// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/tour_driver.h"

#include <QString>

/// Saves the unit's settings and looks at the file.
/// @param line_count of the file: 24, and 26 on the Pro.
void save_settings(Tour_Driver& driver, const QString& path, int line_count);

/// Loads the file into the unit that is connected now, which is the second one.
void load_settings(Tour_Driver& driver, const QString& path);

/// Loads the file into the second unit and sees that it says of itself what was saved.
void load_and_compare(Tour_Driver& driver, const QString& path);

/// Asks the unit for everything anew, and waits until its answer has come.
void refresh(Tour_Driver& driver);
