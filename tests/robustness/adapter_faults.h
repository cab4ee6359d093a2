// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/network_fixture.h"

#include <QStringList>

#include <functional>
#include <vector>

/// A fault of the adapter by its option, and what the user of a Plus or Pro sees on the path from
/// the connection method to the filled pages.
struct Adapter_Fault_Case {
    QString option;     ///< of halvern-sim-adapter, without its dashes
    QString value = {}; ///< null for an option without one
    /// The behaviour in the words of docs/faults.md.
    QString words;
    /// How many searches the fault lasts, if it blocks the tool as long as it lasts; 0 for all.
    int lasts_searches = 0;
    /// The boxes on this path, in order.
    QStringList warnings = {};
    /// The list of adapters, without the addresses.
    QStringList names = {"ADAPTER"};
    /// How often the tool tries a login, 1 without a fault.
    int login_attempts = 1;
    /// The box after which the process ends with the status 1; empty if it goes on. The dialogs up
    /// to there, and whether new settings are applied in the last.
    QString last_box = {};
    int dialogs_before_the_end = 4;
    bool applies = false;

    [[nodiscard]] QStringList arguments() const;
    /// As docs/faults.md writes it.
    [[nodiscard]] QString title() const;
};

/// All cases, grouped by option.
const std::vector<Adapter_Fault_Case>& adapter_fault_cases();

/// Puts the adapter and its switch into the state that the command line describes.
void set_up_as_described(Network_Fixture& at, const Adapter_Fault_Case& fault);

/// The robot will follow the network path as far as possible.
/// @param names receives the list from which the user chooses.
void expect_path(Network_Fixture& at, const Adapter_Fault_Case& fault, QStringList& names);
