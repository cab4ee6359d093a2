// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// The event log: what went wrong in this run, for a technician who looks at the machine
/// afterwards.
///
/// One text file for the whole process, "KM_log.txt" in the public documents folder
/// `C:\Users\Public\Documents`. Opening the log empties it; every line is flushed at once. On a
/// machine without this folder no file is created, and entries are silently dropped, as they are
/// while the log is closed.

/// Opens the file and writes "Start.........".
/// @return 1 if the log is open now, -1 if it is not.
int open_log();

/// Writes "Stop........." and closes the file.
void close_log();

/// Writes one entry: the message, three spaces, the local time as "yyyy-MM-dd hh:mm:ss".
void write_log_line(const std::string& message);
