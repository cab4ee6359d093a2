// SPDX-License-Identifier: MIT

#include "settings/settings_log.h"

Q_LOGGING_CATEGORY(settings_log, "halvern.settings", QtWarningMsg)
