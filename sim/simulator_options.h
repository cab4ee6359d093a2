// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"
#include "sim/switch_state.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

/// The command line of halvern-sim.
struct Simulator_Options {
    Switch_Model model = Switch_Model::lite;
    int units = 1;
    Fault_Plan faults;
    /// Time from the first command until a unit disconnects; never if empty.
    std::optional<std::chrono::milliseconds> vanish_after;
    QString state_file; ///< empty: nothing is saved
    bool end_with_input = false;
    QStringList program; ///< to be started with the units, with its arguments; may be empty

    bool help_wanted = false;
    QString error; ///< why the command line is wrong, empty if it is correct
};

/// Reads a command line. The first argument is the program's own name.
Simulator_Options read_simulator_options(const QStringList& arguments);

/// The help text, in the style of a manual page.
QString simulator_help();

/// "lite", "plus" or "pro".
QString model_name(Switch_Model model);
