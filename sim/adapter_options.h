// SPDX-License-Identifier: MIT

#pragma once

#include "sim/adapter_state.h"
#include "sim/fault_plan.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// The command line of halvern-sim-adapter.
struct Adapter_Options {
    Adapter_State first;
    Adapter_Faults faults;
    int count = 1;
    std::chrono::milliseconds delay{0};
    std::chrono::milliseconds time_away{1000};
    int split_bytes = 0;
    Fault_Plan switch_faults;
    QString switch_model; ///< "plus", "pro" or "none"
};

/// The options that are faults of the adapter itself, in the order of the help.
QStringList adapter_fault_names();

/// Reads the command line; --help prints the help and ends the process.
/// @param error receives why the arguments are wrong.
std::optional<Adapter_Options> read_adapter_options(const QStringList& arguments, QString& error);
