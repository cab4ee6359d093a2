// SPDX-License-Identifier: MIT

#pragma once

#include "benchmarks/models.h"
#include "benchmarks/statistics.h"

#include <QMap>
#include <QString>

/// What the tool and the bare form measured of themselves, by name, sample by sample.
struct Tool_And_Form {
    QMap<QString, Samples> tool;
    QMap<QString, Samples> form;
};

/// Runs the tool's window of a model, with a simulated switch on its line, and the model's bare
/// form in turn; each time in new processes. One run of each before the first sample warms the
/// system's caches.
Tool_And_Form run_in_turn(const QString& model, const QString& task, int rounds);
