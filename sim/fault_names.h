// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"

#include <QString>

#include <vector>

/// The faults by the names that the user types, the same on the command line and at the
/// prompt.
struct Fault_Word {
    QString name;
    QString value_name; ///< the value after the name, empty if there is none
    QString description;
    /// Adds the fault to a plan. False if the value is not valid.
    bool (*set)(Fault_Plan& plan, const QString& value);
};

/// All faults, in the order of the help.
const std::vector<Fault_Word>& fault_names();

/// Adds the fault with that name to a plan.
/// @return whether the fault exists and its value is valid; if not, the plan is unchanged.
bool set_fault(Fault_Plan& plan, const QString& name, const QString& value);
