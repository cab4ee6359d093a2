// SPDX-License-Identifier: MIT

#include "tests/support/layout_table.h"

#include "tests/support/find_child.h"

#include <QHeaderView>
#include <QTest>

namespace {

QString tile_sign(const QTableWidgetItem* tile) {
    if (tile == nullptr) {
        return ".";
    }
    const QColor colours[] = {Qt::yellow, Qt::green, Qt::blue, Qt::red};
    for (int channel = 1; channel <= 4; ++channel) {
        const QString name = "Channel " + QString::number(channel);
        if (tile->text() == name && tile->background() == QBrush(colours[channel - 1])) {
            return QString::number(channel);
        }
        if (tile->text() == name + "\nINACTIVE" && tile->background() == QBrush(Qt::gray)) {
            return QString(QChar('a' + channel - 1));
        }
    }
    return '[' + tile->text() + ' ' + tile->background().color().name() + ']';
}

} // namespace

Layout_Table::Layout_Table(const Window_Fixture& window_fixture)
    : widget(find_child<QTableWidget>(window_fixture.window(), "tableWidget")),
      fixture(window_fixture) {}

QString Layout_Table::picture() const {
    QStringList rows;
    for (int row = 0; row < widget.rowCount(); ++row) {
        QString signs;
        for (int column = 0; column < widget.columnCount(); ++column) {
            signs += tile_sign(widget.item(row, column));
        }
        rows.append(signs);
    }
    return rows.join('/');
}

void Layout_Table::show_page() const { fixture.button("TopologyAndDisplayBtn").click(); }

void Layout_Table::press(int row, int column, Qt::KeyboardModifiers modifiers) const {
    QTest::mouseClick(widget.viewport(), Qt::LeftButton, modifiers, centre(row, column));
}

QPoint Layout_Table::centre(int row, int column) const {
    return widget.visualRect(widget.model()->index(row, column)).center();
}

bool Layout_Table::is_armed() const {
    return widget.dragEnabled() && widget.dragDropMode() == QAbstractItemView::InternalMove &&
           widget.verticalHeader()->sectionsMovable();
}

bool Layout_Table::is_disarmed() const {
    return !widget.dragEnabled() && widget.dragDropMode() == QAbstractItemView::NoDragDrop &&
           !widget.verticalHeader()->sectionsMovable();
}
