#pragma once

#include <QObject>

#include <array>

/// Turns SIGINT and SIGTERM into a Qt signal, so that a program can end in order. There can be one
/// such object in a process.
class Ending_Signals : public QObject {
    Q_OBJECT

public:
    explicit Ending_Signals(QObject* parent = nullptr);
    ~Ending_Signals() override;

    Ending_Signals(const Ending_Signals&) = delete;
    Ending_Signals& operator=(const Ending_Signals&) = delete;

signals:
    /// The process has been asked to end.
    void received();

private:
    std::array<int, 2> pipe_ends = {-1, -1};
};
