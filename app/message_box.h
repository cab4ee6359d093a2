// SPDX-License-Identifier: MIT

#pragma once

#include <QMessageBox>
#include <QString>

#include <exception>
#include <string>
#include <utility>

/// The common appearance of all messages to the user, and the common handling of all failures.

/// Sets the common appearance of a box (font "Segoe UI" 12, title "Information" for every icon, one
/// button Ok), the text and the icon, and shows it without waiting.
/// @param icon a QMessageBox::Icon value.
void set_message_box_look(const QString& text, const int& icon, QMessageBox* box);

/// Shows a message in the common appearance and waits until the user has pressed Ok. Events are
/// processed meanwhile. The text is cut at its first NUL and never interpreted as markup.
void show_information_box(const QString& text, const int& icon);

/// Writes a failure to the event log and then shows the same text with the warning icon. In this
/// order the entry is written even if the box is left open. When called while an exception is
/// handled, it also reports the text of the exception to the diagnostics.
void report_failure(const std::string& text);

/// Runs a step and calls report_failure(text) for any exception.
/// @return what the step returned, or the fallback after a failure.
template <typename Step, typename Result>
Result report_exceptions(const char* text, Step&& step, Result fallback) {
    try {
        return std::forward<Step>(step)();
    } catch (...) {
        report_failure(text);
    }
    return fallback;
}
