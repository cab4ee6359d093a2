// SPDX-License-Identifier: MIT

#include "sim/port_list.h"

#include <QFileInfo>
#include <QtGlobal>

namespace {

/// Puts a value in front of or behind what a list in the environment holds.
QString joined(const QString& first, const QString& second) {
    return first.isEmpty() || second.isEmpty() ? first + second : first + ':' + second;
}

/// In a list of libraries to preload a blank parts a path. So such a library is named by its file
/// alone, and its folder where libraries are looked for.
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
    // A program built with AddressSanitizer refuses to start behind any preloaded library; ours
    // does not get in its way. Other programs do not read this.
    environment.insert("ASAN_OPTIONS",
                       joined(base.value("ASAN_OPTIONS"), "verify_asan_link_order=0"));
    return environment;
}
