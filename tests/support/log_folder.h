// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// A temporary working directory, with or without the folder of the event log. The log's path
/// begins with a drive; off Windows that makes it a plain name in the working directory. The
/// destructor restores the earlier working directory.
class Log_Folder {
public:
    enum class Folder { present, missing };

    explicit Log_Folder(Folder folder = Folder::present);
    ~Log_Folder();
    Log_Folder(const Log_Folder&) = delete;
    Log_Folder& operator=(const Log_Folder&) = delete;

    [[nodiscard]] QString log_path() const;
    [[nodiscard]] bool has_log() const;

    /// The whole content of the log now.
    [[nodiscard]] QByteArray text() const;

    /// The messages of the entries, without their times and without the start and stop lines.
    [[nodiscard]] QStringList entries() const;

    /// The names of everything in the working directory.
    [[nodiscard]] QStringList names() const;

private:
    QTemporaryDir place;
    QString earlier_directory = QDir::currentPath();
};
