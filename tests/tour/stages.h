// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/tour_driver.h"

#include <QString>

/// The names of the stages are padded to this width in front of every line.
inline constexpr int stage_column = 13;

/// The stages of the tour. Each is one run of the program with two units of the model, from the
/// model dialog to the closing of its window.
///
/// @param settings_file is created by the stage.
void take_lite_tour(Tour_Driver& driver, const QString& settings_file);
void take_plus_serial_tour(Tour_Driver& driver, const QString& settings_file);
void take_pro_serial_tour(Tour_Driver& driver, const QString& settings_file);
void take_plus_adapter_tour(Tour_Driver& driver, const QString& settings_file);
void take_pro_adapter_tour(Tour_Driver& driver, const QString& settings_file);

/// A short run of an installed program: the Lite up to its filled page, and a check where the
/// program, its libraries and its logo come from.
void take_installed_tour(Tour_Driver& driver, const QString& settings_file);
