// SPDX-License-Identifier: MIT

#pragma once

class QObject;
class QString;
class QTextEdit;

/// The terminal pane: everything the switch has sent, unchanged, in the order of arrival.
class Terminal_View {
public:
    /// The view is scrolled again after this time, when the layout of a chunk is complete.
    static constexpr int second_scroll_ms = 100;

    /// @param window the object whose slot scroll_Cursor_to_the_end() the second scroll calls.
    Terminal_View(QTextEdit& text_edit, QObject& window);

    /// Adds a chunk at the end, as plain text and never as markup, and scrolls there. The time for
    /// this does not grow with the text already shown.
    void append(const QString& chunk);
    void scroll_Cursor_to_the_end();
    void clear();

private:
    QTextEdit& view;
    QObject& timer_target;
};
