#pragma once

#include "tests/settings/settings_desk.h"

#include <QMap>
#include <QString>

/// Everything that a load leaves in the widgets, by short names: indices, texts, and the picture of
/// the tiles.
using Sight = QMap<QString, QString>;

Sight look_at(const Settings_Desk& desk);

/// What the lines of a new Settings_Lines leave, with some points changed.
Sight good_sight(const Settings_Desk& desk, const Sight& changed = {});
