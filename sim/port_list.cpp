// SPDX-License-Identifier: MIT

#include "sim/port_list.h"

#include <QFileInfo>
#include <QtGlobal>

namespace {

/// Joins a value and a list of the environment; each may be empty.
QString joined(const QString& first, const QString& second) {
    return first.isEmpty() || second.isEmpty() ? first + second : first + ':' + second;
}

/// A space splits a path in a list of libraries to preload. So such a library is given by its file
/// name only, and its folder is added to the search path of libraries.
void preload(QProcessEnvironment& environment, const QString& path) {
    QString library = path;
    if (path.contains(' ')) {
        const QFileInfo file(path);
        library = file.fileName();
        environment.insert("LD_LIBRARY_PATH",
                           joined(file.path(), environment.value("LD_LIBRARY_PATH")));
    }
    environment.insert("LD_PRELOAD", joined(library, environment.value("LD_PRELOAD")));
}

} // namespace

QByteArray port_list_value(const QStringList& device_names) {
    return device_names.join(':').toLocal8Bit();
}

void list_ports(const QStringList& device_names) {
    qputenv(port_list_variable, port_list_value(device_names));
}

QProcessEnvironment environment_with_ports(const QProcessEnvironment& base,
                                           const QStringList& device_names,
                                           const QString& library_path) {
    QProcessEnvironment environment = base;
    environment.insert(port_list_variable, QString::fromLocal8Bit(port_list_value(device_names)));
    preload(environment, library_path);
    // A program built with AddressSanitizer refuses to start after any preloaded library; ours is
    // harmless here. Other programs do not read this.
    environment.insert("ASAN_OPTIONS",
                       joined(base.value("ASAN_OPTIONS"), "verify_asan_link_order=0"));
    return environment;
}
