// SPDX-License-Identifier: MIT

#include "tests/support/find_child.h"

QStringList named_children(const QObject& parent) {
    QStringList names;
    for (const QObject* child : parent.findChildren<QObject*>()) {
        if (!child->objectName().isEmpty()) {
            names.append(
                QString("%1 %2").arg(child->metaObject()->className(), child->objectName()));
        }
    }
    names.sort();
    return names;
}

void report_missing_child(const QObject& parent, const char* class_name, const QString& name) {
    qFatal("%s has no %s \"%s\" among its children:\n  %s", parent.metaObject()->className(),
           class_name, qPrintable(name), qPrintable(named_children(parent).join("\n  ")));
}
