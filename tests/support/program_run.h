// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/virtual_time.h"

#include <QByteArray>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <optional>

/// How a program is to be run.
struct Program_Setting {
    QString program;
    QStringList arguments = {};
    QStringList ports = {}; ///< device names of the only serial ports that it sees
    QString display = {};   ///< an X display such as ":7"; empty runs it without any
    QMap<QString, QString> environment = {}; ///< further variables
};

/// A program, such as the real tool, run unmodified: as a child process that sees the given serial
/// ports and no others. The child is killed with this object if it has not ended by then. Time is
/// real as long as this object exists.
class Program_Run {
public:
    /// Starts the program. started() returns whether that worked.
    explicit Program_Run(const Program_Setting& setting);
    ~Program_Run();

    Program_Run(const Program_Run&) = delete;
    Program_Run& operator=(const Program_Run&) = delete;

    bool started() const { return process.error() != QProcess::FailedToStart; }

    bool has_ended() const { return process.state() == QProcess::NotRunning; }

    /// Processes events, so that simulated switches in this process answer, until the program has
    /// ended.
    /// @return whether it ended in time.
    [[nodiscard]] bool wait_for_end(int milliseconds = 10'000);

    /// The status the program ended with; nothing while it runs, or if a signal ended it.
    std::optional<int> exit_status() const;

    /// The signal that ended the program; nothing while it runs, or if it ended by itself.
    std::optional<int> ending_signal() const;

    /// Everything written to the standard output, and to the standard error, so far.
    const QByteArray& output();
    const QByteArray& errors();

    /// For its input, its process id and its signals.
    QProcess& child() { return process; }

private:
    const Real_Time time;
    QProcess process;
    QByteArray all_output;
    QByteArray all_errors;
};

/// The tool itself: the file named in the environment as HALVERN_PROGRAM, otherwise the one in this
/// build folder.
QString halvern_program();

/// The program that runs simulated switches, in this build folder.
QString halvern_sim_program();
