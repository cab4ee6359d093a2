// SPDX-License-Identifier: MIT

#pragma once

#include "sim/adapter_state.h"
#include "sim/fault_plan.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// What the command line of halvern-sim-adapter asks for.
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

/// The options that make an adapter itself go wrong, in the order of the help.
QStringList adapter_fault_names();

/// Reads the command line; --help is answered here and ends the process.
/// @param error takes why the arguments can't be used.
std::optional<Adapter_Options> read_adapter_options(const QStringList& arguments, QString& error);
