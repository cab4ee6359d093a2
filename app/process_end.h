// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

/// Ends the process on purpose when a window cannot continue: exit status 1. No destructor of a
/// window runs; the event log keeps what has been written.
[[noreturn]] void end_process();

/// Shows the reason in a message box with the title " " and ends the process when it is closed.
[[noreturn]] void end_process_after_warning(QWidget& window, const QString& reason);
