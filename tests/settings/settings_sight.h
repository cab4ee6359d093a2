#pragma once

#include "tests/support/lite_fixture.h"

#include <QMap>
#include <QString>

/// Everything that a load leaves in the widgets, by short names: indices, texts, and the picture of
/// the tiles.
using Sight = QMap<QString, QString>;

Sight look_at(const Lite_Fixture& lite);

/// What the lines of a new Settings_Lines leave.
extern const Sight good_sight;

/// The same with some points changed.
Sight good_sight_but(const Sight& changed);
