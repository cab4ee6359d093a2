// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/lite_fixture.h"

#include <QStringList>

/// What the left menu shows of the link, and the controls that depend on it, as one text.

inline const QString shows_disconnected = "red, ON enabled, OFF disabled, controls disabled";
inline const QString shows_connected = "green, ON disabled, OFF enabled, controls enabled";

/// One of the two texts above, or another one with the differences. It contains the style sheet of
/// an indicator that has neither of its two styles.
QString shown_link_state(const Lite_Fixture& lite);

/// The object names of all controls that depend on the link.
const QStringList& link_controls();
