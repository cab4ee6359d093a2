// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <optional>

/// What is visible of the program's windows. To be called in the program's thread.
namespace on_screen {

/// The widget of a name in the dialog that waits for an answer, otherwise in any visible window. If
/// there is none, a widget with "_2" after this name counts: the Pro's form has some.
/// @return null if there is no such widget.
QWidget* find(const QString& object_name);

/// What a widget shows: the text of a label, button or field, the item of a combo box, "checked" or
/// "unchecked" of a check box or radio button.
QString shown(const QWidget& widget);

/// Where a widget can be clicked on the screen: it is visible, enabled and not covered, and its
/// window has the focus.
std::optional<QPoint> clickable_spot(QWidget& widget);

/// The middle of a cell of the layout grid.
std::optional<QPoint> cell_spot(int row, int column);

/// Texts of the 16 cells of the layout grid, row by row, empty ones as "-".
QStringList grid_texts();

/// The message of the box that waits for an answer; null without one.
QString box_text();

/// The button of the dialog that waits for an answer, by its caption without "&".
QWidget* dialog_button(const QString& caption);

/// Class and name of the visible windows.
QString windows();

/// Whether a window of the program has the focus, is visible, and has its frame from the window
/// manager, which the program learns a little later.
bool is_painted();

/// Repaints the program's windows.
void repaint();

/// Saves what the screen shows of the program's windows.
bool save_picture(const QString& path);

} // namespace on_screen
