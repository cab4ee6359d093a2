// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// Where the program's code comes from.
namespace loaded_code {

/// The folder that holds the installed program, and below it or in the system's own folders all
/// that it loads. Ends with a slash.
QString home();

/// Files that the program runs code of and that come from elsewhere, but for the tour's own.
/// @throws Step_Failed if that can't be found out.
QStringList foreign_files();

} // namespace loaded_code
