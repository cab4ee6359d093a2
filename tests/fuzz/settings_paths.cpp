// SPDX-License-Identifier: MIT

#include "tests/fuzz/settings_paths.h"

#include "settings/file_dialogs.h"

#include <QFile>

#include <sys/mman.h>

namespace {

const QString& path() {
    static const QString the_path = QString("/proc/self/fd/%1").arg(memfd_create("settings", 0));
    return the_path;
}

} // namespace

void settings_paths::write(const QByteArray& content) {
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("the file in memory can't be written");
    }
}

QByteArray settings_paths::read() {
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString ask_where_to_save() { return path(); }

QString ask_what_to_load() { return path(); }
