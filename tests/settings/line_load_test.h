// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/log_folder.h"
#include "tests/support/settings_fixture.h"

#include <QTest>

#include <memory>

/// Base class of tests of single lines of a settings file: an open log, and a window on a silent
/// switch whose widgets show something else than a missing line leaves.
class Line_Load_Test : public QObject {
    Q_OBJECT

protected:
    /// Loads the lines, both parts, with this many error boxes in each and at the mouse mode, which
    /// must refill the fields from the first label.
    [[nodiscard]] bool load(int first_part_errors, int second_part_errors, int mode_errors = 0);

    std::unique_ptr<Log_Folder> log;
    std::unique_ptr<Settings_Fixture> fixture;
    Settings_Lines lines;

protected slots:
    void init();
    void cleanup();
};
