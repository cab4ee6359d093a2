// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

/// Diagnostics of the adapter search and configuration for a developer, off until switched on with
/// QT_LOGGING_RULES="halvern.usr.debug=true". Frames are told by kind and size only: their bytes
/// hold passwords.
Q_DECLARE_LOGGING_CATEGORY(usr_log)
