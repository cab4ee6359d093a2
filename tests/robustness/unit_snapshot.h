// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/window_fixture.h"

#include <QMap>
#include <QString>

/// What a window shows of a unit, under short names: "km", "usb", "mode", "ports", "rolling",
/// "parking x", "parking y", "buzzer", "hotkey", "entry 1" to "entry 4", "name 1" to "name 4",
/// "resolution 1" to "resolution 4", "layout", and "audio" on a Pro.
using Unit_Snapshot = QMap<QString, QString>;

/// What a window shows now. A name that is not in the lists is "(none)", as is an audio box that is
/// not there; a box without a choice shows "(none)" as well.
Unit_Snapshot look_at_unit(const Window_Fixture& at);

/// The snapshot of a window that shows the whole unit.
Unit_Snapshot snapshot_of(const Switch_State& state, Switch_Model model);

/// The differences between what a window shows and what it should, one line each; empty if none.
QString differences(const Unit_Snapshot& shown, const Unit_Snapshot& wanted);

/// What the link's own widgets show: "connected", "not connected", or the contradiction.
QString link_status(const Window_Fixture& at);
