// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

/// Reads and writes whole files, for settings files. A file that is not regular (a folder, a pipe,
/// a device) and a name that is not valid Unicode cannot be opened. The reason of a failure is only
/// reported to the logging category halvern.settings.

/// The whole text of a file, without the CR of each CR LF. A read error ends the text. The text
/// of a file that cannot be opened is empty.
[[nodiscard]] std::string read_file(const QString& path);

/// Replaces the content of a file by a text, with the platform's line ends. An existing file is
/// replaced completely or stays unchanged, even if the disk is full or the power fails: the text is
/// written to a temporary file, synchronised, and renamed. Symbolic links are followed; the file's
/// mode is kept, and its owner and group if the system allows.
///
/// A file that cannot be replaced, as in a folder without write permission, is overwritten in
/// place. If this fails, its earlier content is restored.
/// @return whether the file contains the text.
bool replace_file(const QString& path, const std::string& text);
