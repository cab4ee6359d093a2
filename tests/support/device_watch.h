// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// Counts how often a device file is opened and closed, by any process, as the kernel reports it.
class Device_Watch {
public:
    /// Starts to watch. The test program ends if the file cannot be watched.
    explicit Device_Watch(const QString& device_name);
    ~Device_Watch();

    Device_Watch(const Device_Watch&) = delete;
    Device_Watch& operator=(const Device_Watch&) = delete;

    /// "open" and "close" in the order in which they happened since the last call.
    QStringList events() const;

private:
    int watcher;
};
