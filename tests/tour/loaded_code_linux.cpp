// SPDX-License-Identifier: MIT

#include "tests/tour/loaded_code.h"
#include "tests/tour/step_failed.h"

#include <QFile>
#include <QSet>

QString loaded_code::home() { return "/usr/"; }

QStringList loaded_code::foreign_files() {
    QFile maps("/proc/self/maps");
    if (!maps.open(QIODevice::ReadOnly)) {
        throw Step_Failed("what the program has loaded can't be read");
    }
    QSet<QString> files;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const QString file = QString::fromLocal8Bit(line.mid(line.indexOf('/')));
        const bool is_code = line.contains("-xp ") && line.contains('/');
        if (is_code && !file.startsWith(home()) && !file.endsWith("/libhalvern_tour.so")) {
            files.insert(file);
        }
    }
    return files.values();
}
