// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QStringList>

/// halvern-sim-adapter in a separate process, for tests in real time, where the tool blocks the
/// test's own thread.
class Adapter_Process {
public:
    /// Starts it and waits until its adapters are on the network; fails the whole test program
    /// otherwise.
    explicit Adapter_Process(const QStringList& arguments);
    ~Adapter_Process();
    Adapter_Process(const Adapter_Process&) = delete;
    Adapter_Process& operator=(const Adapter_Process&) = delete;

    /// What it has printed so far.
    QStringList lines();
    /// The lines that contain a text.
    QStringList lines_with(const QString& text) { return lines().filter(text); }

private:
    QProcess process;
    QStringList all_lines;
};
