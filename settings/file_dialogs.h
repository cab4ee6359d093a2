// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The two dialogs that ask for a settings file. They are in a file of their own, and nothing
/// else is, so that a program may be linked with answers of its own instead.

/// @return path of the file to be written; empty if the dialog was cancelled.
[[nodiscard]] QString ask_where_to_save();

/// @return path of the file to be read; empty if the dialog was cancelled.
[[nodiscard]] QString ask_what_to_load();
