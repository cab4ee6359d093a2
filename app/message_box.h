// SPDX-License-Identifier: MIT

#pragma once

#include <QMessageBox>
#include <QString>

#include <exception>
#include <string>
#include <utility>

/// The one look of all messages to the user, and the one path of all failures.

/// Gives a box the common look (font "Segoe UI" 12, title "Information" whatever the icon, one
/// button Ok), the text and the icon, and shows it without waiting.
/// @param icon a QMessageBox::Icon value.
void set_message_box_look(const QString& text, const int& icon, QMessageBox* box);

/// Shows a message in the common look and waits until the user has pressed Ok. Events are served
/// meanwhile. The text is cut at its first NUL and never read as markup.
void show_information_box(const QString& text, const int& icon);

/// Writes a failure to the event log and then shows the same text with the warning icon; in this
/// order, so that the entry is safe even if the box is left open. Called while an exception is
/// being handled, it also tells a developer that exception's own words.
void report_failure(const std::string& text);

/// Runs a step whose every exception ends in report_failure(text).
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
