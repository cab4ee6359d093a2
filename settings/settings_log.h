// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

/// Diagnostics of settings files for a developer, off until switched on with
/// QT_LOGGING_RULES="halvern.settings.debug=true": why a file was not read or written. Only file
/// names and the system's reasons are printed, never the content.
Q_DECLARE_LOGGING_CATEGORY(settings_log)
