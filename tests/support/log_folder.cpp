// SPDX-License-Identifier: MIT

#include "tests/support/log_folder.h"

#include <QFile>

namespace {

const char* const folder_name = R"(C:\Users\Public\Documents)";

} // namespace

Log_Folder::Log_Folder(Folder folder) {
    if (!place.isValid() || !QDir::setCurrent(place.path()) ||
        (folder == Folder::present && !QDir().mkdir(folder_name))) {
        qFatal("no place for the event log");
    }
}

Log_Folder::~Log_Folder() { QDir::setCurrent(earlier_directory); }

QString Log_Folder::log_path() const {
    return place.path() + '/' + QString(folder_name) + "/KM_log.txt";
}

bool Log_Folder::has_log() const { return QFile::exists(log_path()); }

QByteArray Log_Folder::text() const {
    QFile file(log_path());
    if (!file.open(QIODevice::ReadOnly)) {
        return "the log can't be read";
    }
    return file.readAll();
}

QStringList Log_Folder::entries() const {
    constexpr qsizetype time_length = sizeof("   yyyy-MM-dd hh:mm:ss") - 1;
    QStringList messages;
    for (const QByteArray& line : text().split('\n')) {
        if (!line.isEmpty() && line != "Start........." && line != "Stop.........") {
            messages.append(QString::fromUtf8(line.chopped(qMin(time_length, line.size()))));
        }
    }
    return messages;
}

QStringList Log_Folder::names() const {
    return QDir(place.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}
