// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QWidget>

/// The visible widgets of the window: labels, buttons, fields, boxes, tables, without the parts
/// that Qt creates inside them.
QList<QWidget*> visible_leaves(const QWidget& window);

/// The widget's rectangle in the window's coordinates.
QRect place_in(const QWidget& window, const QWidget& widget);

/// The leaves that reach beyond a widget around them, one line each.
QStringList leaves_out_of_bounds(const QWidget& window);

/// The pairs of leaves that share a pixel, one line each.
QStringList overlapping_leaves(const QWidget& window);

/// The object names of the leaves whose text or picture does not fit into them.
QStringList leaves_with_cut_content(const QWidget& window);

/// The objects of one "order" fact that are not where they should be; empty if none.
QStringList order_differences(const QWidget& window, const QJsonObject& order);

/// The differences of a block's layout from the fact in spacing and margins; empty if none.
QStringList layout_differences(const QWidget& block, const QJsonObject& fact);
