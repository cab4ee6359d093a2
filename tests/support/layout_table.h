// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/lite_fixture.h"

#include <QPoint>
#include <QString>
#include <QTableWidget>

/// The grid of the layout page, to be read and pressed by a test.
class Layout_Table {
public:
    explicit Layout_Table(const Window_Fixture& window_fixture);

    /// All 16 cells, row by row: "1234/..../..../....". A digit is an active channel's tile in its
    /// own colour, "c" and "d" are the gray tiles of channels 3 and 4 with their second line, a dot
    /// is an empty cell. Any other tile is given in brackets, with its colour.
    QString picture() const;

    /// Shows the layout page. A switch must have answered before.
    void show_page() const;

    /// Presses and releases the left button in the middle of a cell.
    void press(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;

    /// The middle of a cell, on the table's viewport.
    QPoint centre(int row, int column) const;

    /// Whether a tile can be dragged now, according to all three settings of the table.
    bool is_armed() const;
    bool is_disarmed() const;

    QTableWidget& widget;

private:
    const Window_Fixture& fixture;
};
