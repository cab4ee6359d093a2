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

/// The simulated switches of halvern-sim, and the commands of the user at the prompt.
class Simulator_Console : public QObject {
    Q_OBJECT

public:
    /// Creates the units according to the options.
    /// @param print prints one line of text, without its end, for the user.
    Simulator_Console(const Simulator_Options& options, std::function<void(const QString&)> print);

    /// The device names of all units.
    QStringList device_names() const;

    /// Prints one line for each unit: its number, its model and its port.
    void introduce_units() const;

    /// Executes one line of input; simulator_help() lists the commands.
    void carry_out(const QString& line);

    /// Writes the state file, if there is one.
    void keep_state() const;

signals:
    /// The user wants to quit.
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
