// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"

#include <QString>

#include <vector>

/// The faults by the names under which a person asks for them, on the command line and at the
/// prompt alike.
struct Fault_Word {
    QString name;
    QString value_name; ///< what stands behind the name, empty if nothing does
    QString description;
    /// Puts the fault into a plan. False if the value makes no sense.
    bool (*set)(Fault_Plan& plan, const QString& value);
};

/// All of them, in the order in which help is given.
const std::vector<Fault_Word>& fault_names();

/// Puts the fault of that name into a plan.
/// @return whether there is such a fault and its value makes sense; if not, the plan is unchanged.
bool set_fault(Fault_Plan& plan, const QString& name, const QString& value);
