// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTableWidgetItem>
#include <QVariant>

/// A tile of the layout's grid. A screen reader hears its channel and the number of its cell, which
/// the switch counts from 1 to 16, row by row.
class Layout_Tile : public QTableWidgetItem {
public:
    [[nodiscard]] QVariant data(int role) const override {
        if (role != Qt::AccessibleTextRole || tableWidget() == nullptr) {
            return QTableWidgetItem::data(role);
        }
        const int cell = 1 + row() * tableWidget()->columnCount() + column();
        return text().replace('\n', ' ') + ", cell " + QString::number(cell);
    }
};
