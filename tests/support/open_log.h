// SPDX-License-Identifier: MIT

#pragma once

#include "app/event_log.h"
#include "tests/support/log_folder.h"

/// The event log, open in a separate folder for the duration of a test.
class Open_Log {
public:
    Open_Log() {
        if (open_log() != 1) {
            qFatal("the event log can't be opened");
        }
    }
    ~Open_Log() { close_log(); }
    Open_Log(const Open_Log&) = delete;
    Open_Log& operator=(const Open_Log&) = delete;

    /// The messages so far, without their times and without the start line.
    [[nodiscard]] QStringList entries() const { return folder.entries(); }

private:
    Log_Folder folder;
};
