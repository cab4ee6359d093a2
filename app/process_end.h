// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

/// The deliberate ends of the process, where a window can't go on: exit status 1. No destructor of
/// a window runs; the event log keeps what it has.
[[noreturn]] void end_process();

/// Tells why, in a box with the title " " on a window, and ends the process when it is closed.
[[noreturn]] void end_process_after_warning(QWidget& window, const QString& reason);
