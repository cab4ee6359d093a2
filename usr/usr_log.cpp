// SPDX-License-Identifier: MIT

#include "usr/usr_log.h"

Q_LOGGING_CATEGORY(usr_log, "halvern.usr", QtWarningMsg)
