// SPDX-License-Identifier: MIT

#pragma once

#include "sim/fault_plan.h"
#include "sim/switch_state.h"
#include "tests/robustness/unit_snapshot.h"

#include <QStringList>

#include <utility>
#include <vector>

/// What a window shows on one path when its unit has a fault.
struct Outcome {
    /// The behaviour in the words of docs/faults.md.
    QString words;
    /// What is shown differently from the unit's state. The text `as_at_start` stands for the
    /// form's initial content.
    Unit_Snapshot shown = {};
    bool warns = false;  ///< the box "Setting data from TQL error" is shown, once
    bool answers = true; ///< the window turns green; else it shows nothing of the unit
    /// Further words and values that make the result certain.
    std::vector<std::pair<QString, QString>> beside = {};
};

inline const QString as_at_start = QStringLiteral("(as at start)");

/// A fault of the switch by its word and value, and what the user sees on either path.
struct Switch_Fault_Case {
    QString fault;
    QString value;
    Outcome serial;
    Outcome network;
    /// The Pro's report is one line longer, which can shift the place that a fault affects.
    Unit_Snapshot shown_on_pro_network = {};

    [[nodiscard]] Fault_Plan plan(const Outcome& outcome) const;
    [[nodiscard]] QString name() const;
    /// As docs/faults.md writes it.
    [[nodiscard]] QString title() const;
};

/// All cases, grouped by word.
const std::vector<Switch_Fault_Case>& switch_fault_cases();

/// One row for each case and model, with the columns "model" and "number" in the list of cases, for
/// every fault that the simulators know and every line that they report. A fault or a line without
/// a case gets a row with the number -1.
void add_switch_fault_rows(const std::vector<Switch_Model>& models);

/// What the window must show: the unit's own values, except those of the outcome.
Unit_Snapshot wanted_snapshot(const Outcome& outcome, const Unit_Snapshot& of_unit,
                              const Unit_Snapshot& at_start);

/// What the window must show after a refresh without the fault: the unit's values. But the lists
/// lose their custom names only if all four are there; fewer stay, and the new ones follow them.
Unit_Snapshot wanted_after_refresh(const Unit_Snapshot& before, const Unit_Snapshot& of_unit);
