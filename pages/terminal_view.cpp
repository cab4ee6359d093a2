// SPDX-License-Identifier: MIT

#include "pages/terminal_view.h"

#include <QTextCursor>
#include <QTextEdit>
#include <QTimer>

Terminal_View::Terminal_View(QTextEdit& text_edit, QObject& window)
    : view(text_edit), timer_target(window) {}

void Terminal_View::append(const QString& chunk) {
    QTextCursor end(view.document());
    end.movePosition(QTextCursor::End);
    end.insertText(chunk);
    scroll_Cursor_to_the_end();
    QTimer::singleShot(second_scroll_ms, Qt::PreciseTimer, &timer_target,
                       SLOT(scroll_Cursor_to_the_end()));
}

void Terminal_View::scroll_Cursor_to_the_end() {
    QTextCursor cursor = view.textCursor();
    cursor.movePosition(QTextCursor::End, QTextCursor::MoveAnchor);
    view.setTextCursor(cursor);
    view.ensureCursorVisible();
}

void Terminal_View::clear() { view.clear(); }
