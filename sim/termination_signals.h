// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <array>

/// Turns SIGINT and SIGTERM into a Qt signal, so that a program can clean up at its end. Only one
/// such object may exist in a process.
class Termination_Signals : public QObject {
    Q_OBJECT

public:
    explicit Termination_Signals(QObject* parent = nullptr);
    ~Termination_Signals() override;

    Termination_Signals(const Termination_Signals&) = delete;
    Termination_Signals& operator=(const Termination_Signals&) = delete;

signals:
    /// The process has been asked to end.
    void received();

private:
    std::array<int, 2> pipe_ends = {-1, -1};
};
