// SPDX-License-Identifier: MIT

#include "tests/tour/loaded_code.h"
#include "tests/tour/step_failed.h"

#include <QDir>

// The second needs the first.
// clang-format off
#include <windows.h>
#include <tlhelp32.h>
// clang-format on

namespace {

QString folder_of(const char* variable, const QString& below) {
    return QDir::fromNativeSeparators(qEnvironmentVariable(variable)) + below;
}

} // namespace

QString loaded_code::home() { return folder_of("LOCALAPPDATA", "/Programs/Halvern/"); }

QStringList loaded_code::foreign_files() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, 0);
    if (snapshot == INVALID_HANDLE_VALUE) {
        throw Step_Failed("what the program has loaded can't be read");
    }
    QStringList files;
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL found = Module32FirstW(snapshot, &module); found;
         found = Module32NextW(snapshot, &module)) {
        const QString file = QDir::fromNativeSeparators(QString::fromWCharArray(module.szExePath));
        const auto is_below = [&file](const QString& folder) {
            return file.startsWith(folder, Qt::CaseInsensitive);
        };
        if (!is_below(home()) && !is_below(folder_of("SystemRoot", "/"))) {
            files.append(file);
        }
    }
    CloseHandle(snapshot);
    return files;
}
