// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/tour_driver.h"

#include <QString>

/// Chooses the model in the dialog with which the program begins.
void pick_model(Tour_Driver& driver, const QString& radio_button);

/// The wizard's path to the serial line.
void take_serial_path(Tour_Driver& driver);

/// The wizard's path through an adapter of the network, from the method dialog on.
/// @param address of the adapter.
void take_network_path(Tour_Driver& driver, const QString& address);
