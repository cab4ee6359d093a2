// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/tour_driver.h"

/// What the tour does on the pages, identical on every model and over both links.

/// The three pages as a factory-new unit fills them, and the indicator of the connection.
void see_factory_settings(Tour_Driver& driver);

/// Each control of the first page; the unit receives each command the moment it is used.
void change_configuration(Tour_Driver& driver);

/// Asks for a factory reset and cancels it.
void cancel_factory_reset(Tour_Driver& driver);

/// Sets a custom entry, and the resolutions of two channels.
void change_mouse_speeds(Tour_Driver& driver);

/// Drags a tile, submits the layout and checks that it is read back from the unit.
void rearrange_displays(Tour_Driver& driver);

/// The Pro's audio panel.
void change_audio(Tour_Driver& driver);

/// Checks the factory settings and changes all except the Pro's audio.
void change_everything(Tour_Driver& driver);

/// The pages after all these changes.
void see_changed_settings(Tour_Driver& driver);
/// The Pro's audio panel after its changes.
void see_changed_audio(Tour_Driver& driver);
