#pragma once

#include <QDir>
#include <QStringList>
#include <QTemporaryDir>

/// Gives the event log its folder for the length of a test, in a temporary place, and reads along.
/// The log's path is relative off Windows, so the probe makes that place the working directory.
class Event_Log_Probe {
public:
    Event_Log_Probe();
    ~Event_Log_Probe();
    Event_Log_Probe(const Event_Log_Probe&) = delete;
    Event_Log_Probe& operator=(const Event_Log_Probe&) = delete;

    /// The messages so far, without their times and without the start line.
    [[nodiscard]] QStringList entries() const;

private:
    QTemporaryDir place;
    QString earlier_directory = QDir::currentPath();
};
