// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QWidget;

/// What a screen reader gets of each control of a window, on all its pages: "object name: name",
/// from Qt's accessibility tree.
QStringList accessible_names(QWidget& window);

/// What it gets of the filled cells of the table with this object name, row by row.
QStringList accessible_cells(QWidget& window, const QString& table);

/// The object names of the widgets that Tab reaches, from the one that has the focus until it has
/// the focus again, or after 100 presses.
QStringList tab_walk(QWidget& window);
