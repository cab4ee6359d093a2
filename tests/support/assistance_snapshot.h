// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QWidget;

/// What a screen reader hears of each control of a window, on all its pages: "object name: name",
/// from the tree that Qt hands to it.
QStringList heard_names(QWidget& window);

/// What it hears of the filled cells of the table with this object name, row by row.
QStringList heard_cells(QWidget& window, const QString& table);

/// The object names of what Tab leads to, from the widget that has the focus until it comes back
/// there, or has been pressed 100 times.
QStringList tab_walk(QWidget& window);
