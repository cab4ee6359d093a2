#include "tests/usr/event_log_probe.h"

#include "app/event_log.h"

#include <QFile>

namespace {

// To a system without drives and backslashes this is one name.
const char* const log_folder = R"(C:\Users\Public\Documents)";

} // namespace

Event_Log_Probe::Event_Log_Probe() {
    if (!place.isValid() || !QDir::setCurrent(place.path()) || !QDir().mkdir(log_folder) ||
        open_log() != 1) {
        qFatal("the event log can't be opened");
    }
}

Event_Log_Probe::~Event_Log_Probe() {
    close_log();
    QDir::setCurrent(earlier_directory);
}

QStringList Event_Log_Probe::entries() const {
    QFile file(QString(log_folder) + "/KM_log.txt");
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("the event log can't be read");
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    lines.removeFirst();
    for (QString& line : lines) {
        // Three blanks and the time end an entry.
        line.chop(QString("   yyyy-MM-dd hh:mm:ss").size());
    }
    return lines;
}
