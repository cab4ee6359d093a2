// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

/// Whole files, as a settings file is read and written. What is no regular file (a folder, a pipe,
/// a device) and a name that is no valid Unicode can't be opened. Why something failed is reported
/// to the category halvern.settings and nobody else.

/// The whole text of a file, without the CR of each CR LF. A reading error ends the text; a file
/// that can't be opened has none.
[[nodiscard]] std::string read_file(const QString& path);

/// Makes a text the whole content of a file, in the platform's line ends. A file that is there is
/// replaced whole or stays as it was, also on a full disk and when the power fails: the text is
/// written beside it, synchronised, and renamed. Symbolic links are followed; the file's mode is
/// kept, its owner and group where the system lets us.
///
/// A file whose place can't be taken by another, as in a folder without rights, is overwritten in
/// place; if that fails, its earlier content is put back.
/// @return whether the file holds the text.
bool replace_file(const QString& path, const std::string& text);
