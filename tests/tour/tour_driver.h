// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/unit_line.h"

#include <QString>
#include <QWidget>

#include <functional>

/// Drives the tour: does with mouse and keyboard what a user would, and reports what is shown. Runs
/// in its own thread, so that it can continue while a dialog of the program waits.
///
/// Widgets are given by their object names. Every action waits until it is possible, and every
/// check waits until it holds; after a time limit the tour ends with Step_Failed.
class Tour_Driver {
public:
    /// @param stage_name in front of every line and picture.
    Tour_Driver(const QString& stage_name, const QString& picture_folder);

    void click(const QString& widget);
    /// Presses a button of the open dialog, by its caption.
    void click_button(const QString& caption);
    /// Chooses an item by its text, with the keyboard.
    void choose(const QString& combo_box, const QString& item);
    /// Replaces the text of a field.
    void type(const QString& line_edit, const QString& text);
    /// Drags a tile of the layout grid. Cells count from 1 to 16, row by row.
    void drag_tile(int from_cell, int to_cell);
    /// Types a file name into a file dialog and accepts it.
    void choose_file(const QString& path, const QString& button);
    /// Closes the window in front.
    void close_window();
    /// Closes the main window, which ends the program.
    void end_program();

    void see(const QString& what, const std::function<bool()>& holds);
    void see_shown(const QString& widget, const QString& text);
    void see_enabled(const QString& widget, bool enabled);
    /// Waits for a message box with this text and presses its button.
    void answer_box(const QString& text, const QString& button = "OK");
    [[nodiscard]] QString shown(const QString& widget) const;

    /// Waits until a unit has received a command.
    /// @param unit_number 1 or 2.
    void see_received(int unit_number, const QString& command);

    /// Waits until a layout that a unit has confirmed was requested and read back. Until then the
    /// tool reads any text it has as that layout, and a Refresh would end it.
    void see_layout_read_back(int unit_number);

    /// Prints the line that ends a step.
    void report_step(const QString& seen);
    /// Takes a picture of the program's windows, named after its step.
    void take_picture(const QString& name);

    /// The names of the units in their own output, the first and the second.
    QString unit_names[2];
    Unit_Line units;

private:
    void click_on(const QString& what, const std::function<QWidget*()>& find);

    QString stage;
    QString pictures;
    int steps_reported = 0;
};
