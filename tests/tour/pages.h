// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/tour_driver.h"

/// What the tour does on the pages, the same on every model and over either link.

/// The three pages as a unit fresh from the factory fills them, and the sign of the connection.
void see_factory_settings(Tour_Driver& driver);

/// Each control of the first page; the unit receives each command the moment it is used.
void change_configuration(Tour_Driver& driver);

/// Asks for a factory reset and cancels it.
void cancel_factory_reset(Tour_Driver& driver);

/// A custom entry, and the resolutions of two channels.
void change_mouse_speeds(Tour_Driver& driver);

/// Drags a tile, submits the layout and sees it read back from the unit.
void rearrange_displays(Tour_Driver& driver);

/// The Pro's audio panel.
void change_audio(Tour_Driver& driver);

/// Looks at the factory settings and changes all but the Pro's audio.
void change_everything(Tour_Driver& driver);

/// The pages after all these changes.
void see_changed_settings(Tour_Driver& driver);
/// The Pro's audio panel after its changes.
void see_changed_audio(Tour_Driver& driver);
