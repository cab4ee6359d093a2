// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The two dialogs that ask for a settings file. They are in a separate file, so that a test can
/// be linked with its own answers.

/// @return path of the file to be written; empty if the dialog was cancelled.
[[nodiscard]] QString ask_where_to_save();

/// @return path of the file to be read; empty if the dialog was cancelled.
[[nodiscard]] QString ask_what_to_load();
