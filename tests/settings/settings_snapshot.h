// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/settings_fixture.h"

#include <QMap>
#include <QString>

/// Everything that a load leaves in the widgets, under short names: indices, texts, and the picture
/// of the tiles.
using Snapshot = QMap<QString, QString>;

Snapshot look_at(const Settings_Fixture& fixture);

/// What the lines of a new Settings_Lines leave, with some values changed.
Snapshot good_snapshot(const Settings_Fixture& fixture, const Snapshot& changed = {});
