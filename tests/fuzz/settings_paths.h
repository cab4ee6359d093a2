// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// Answers the dialogs that ask for a settings file with a file in memory. To be linked in place of
/// settings/file_dialogs.cpp.
namespace settings_paths {

/// Sets the content of the file.
void write(const QByteArray& content);
/// The content of the file.
[[nodiscard]] QByteArray read();

} // namespace settings_paths
