// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/tour_driver.h"

#include <QString>

/// Saves the unit's settings and checks the file.
/// @param line_count of the file: 24, and 26 on the Pro.
void save_settings(Tour_Driver& driver, const QString& path, int line_count);

/// Loads the file into the connected unit, which is the second one.
void load_settings(Tour_Driver& driver, const QString& path);

/// Loads the file into the second unit and checks that it reports what was saved.
void load_and_compare(Tour_Driver& driver, const QString& path);

/// Reads everything from the unit again, and waits for its answer.
void refresh(Tour_Driver& driver);
