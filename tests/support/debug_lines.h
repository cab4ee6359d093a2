// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

#include <cstring>

/// Switches the tool's debug lines on for the duration of a test, whatever the environment's
/// logging rules say.
class Debug_Lines {
public:
    Debug_Lines() {
        earlier_filter() = QLoggingCategory::installFilter(nullptr);
        QLoggingCategory::installFilter(&switch_on);
    }
    ~Debug_Lines() { QLoggingCategory::installFilter(earlier_filter()); }
    Debug_Lines(const Debug_Lines&) = delete;
    Debug_Lines& operator=(const Debug_Lines&) = delete;

private:
    static QLoggingCategory::CategoryFilter& earlier_filter() {
        static QLoggingCategory::CategoryFilter filter = nullptr;
        return filter;
    }

    static void switch_on(QLoggingCategory* category) {
        earlier_filter()(category);
        const char* name = category->categoryName();
        if (std::strcmp(name, "default") == 0 || std::strncmp(name, "halvern.", 8) == 0) {
            category->setEnabled(QtDebugMsg, true);
        }
    }
};
