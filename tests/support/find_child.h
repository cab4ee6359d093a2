// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

/// The descendants of an object that have a name, one "Class name" each, sorted.
QStringList named_children(const QObject& parent);

/// Ends the test program with a message that lists what there is instead: a test whose widget is
/// missing has nothing left to test.
[[noreturn]] void report_missing_child(const QObject& parent, const char* class_name,
                                       const QString& name);

/// The descendant of the given class and object name, at any depth. Never null.
template <typename Child>
Child& find_child(const QObject& parent, const QString& name) {
    Child* child = parent.findChild<Child*>(name);
    if (child == nullptr) {
        report_missing_child(parent, Child::staticMetaObject.className(), name);
    }
    return *child;
}
