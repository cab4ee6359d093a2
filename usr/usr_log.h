// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

/// Diagnostics of the adapter search and configuration for a developer, off until switched on with
/// QT_LOGGING_RULES="halvern.usr.debug=true". Frames are reported by kind and size only,
/// because their bytes contain passwords.
Q_DECLARE_LOGGING_CATEGORY(usr_log)
