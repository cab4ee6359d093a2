// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>

/// The other side of the link: the commands that the simulated units print when they receive them,
/// which arrive on the program's standard input, and the questions that they answer.
class Unit_Line {
public:
    /// Waits until a unit has received a command, after those that were awaited before.
    /// @param unit the unit's name in its lines, such as "unit 1  ".
    /// @throws Step_Failed if it does not come.
    void await_command(const QString& unit, const QString& command);

    /// Asks a unit on the serial line (1, 2) for its settings, in the form of its report.
    /// @param last_line how the report's last line begins.
    QString report(int unit_number, const QString& last_line);

private:
    QString next_line(std::chrono::milliseconds patience);

    QByteArray unread;
    QStringList lines_met;
};
