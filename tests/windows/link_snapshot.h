// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/lite_fixture.h"

#include <QStringList>

/// What the left menu shows of the link, and the controls that follow it, as one text.

inline const QString shows_disconnected = "red, ON enabled, OFF disabled, controls disabled";
inline const QString shows_connected = "green, ON disabled, OFF enabled, controls enabled";

/// One of the two texts above, or another one that tells what does not fit. An indicator in neither
/// of its two styles stands in it with its whole style sheet.
QString shown_link_state(const Lite_Fixture& lite);

/// The object names of all controls that follow the link.
const QStringList& link_controls();
