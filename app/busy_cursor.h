// SPDX-License-Identifier: MIT

#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the wait cursor as long as the object exists: while the program processes no events. It
/// must be destroyed before a message box asks for an answer.
class Busy_Cursor {
public:
    Busy_Cursor() {
        if (has_cursor) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        }
    }
    ~Busy_Cursor() {
        if (has_cursor) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
    Busy_Cursor(const Busy_Cursor&) = delete;
    Busy_Cursor& operator=(const Busy_Cursor&) = delete;

private:
    /// A program without windows may search for adapters as well.
    const bool has_cursor = qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
};
