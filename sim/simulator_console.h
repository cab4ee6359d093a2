// SPDX-License-Identifier: MIT

#pragma once

#include "sim/simulated_switch.h"
#include "sim/simulator_options.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

/// The simulated switches of halvern-sim, and what a person can do with them at the prompt.
class Simulator_Console : public QObject {
    Q_OBJECT

public:
    /// Sets up the units as the options say.
    /// @param print takes one line of text, without its end, for the person to read.
    Simulator_Console(const Simulator_Options& options, std::function<void(const QString&)> print);

    /// The device names of all units.
    QStringList device_names() const;

    /// Prints one line for each unit: its number, its model and its port.
    void introduce_units() const;

    /// Carries out one line of input; see simulator_help() for what it may be.
    void carry_out(const QString& line);

    /// Writes the state file, if there is one.
    void keep_state() const;

signals:
    /// The person wants to end.
    void quit_wanted();

private:
    void set_up_unit(int number);
    void carry_out(Simulated_Switch& unit, const QString& verb, const QString& rest);
    void change_channel(Simulated_Switch& unit, const QString& verb, const QString& rest);
    void change_faults(Simulated_Switch& unit, const QString& rest);

    Simulator_Options simulator_options;
    std::function<void(const QString&)> print_line;
    std::vector<std::unique_ptr<Simulated_Switch>> units;
};
