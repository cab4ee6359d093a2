// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

/// Where the program's code comes from.
namespace loaded_code {

/// The folder of the installed program: all that it loads must be below it or in the system's own
/// folders. Ends with a slash.
QString home();

/// Files with code of the program that come from elsewhere, except the tour's own.
/// @throws Step_Failed if this can't be determined.
QStringList foreign_files();

} // namespace loaded_code
