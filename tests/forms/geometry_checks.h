// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QWidget>

/// The widgets a person sees on the window as it is shown: labels, buttons, fields, boxes, tables,
/// without the parts that Qt makes inside them.
QList<QWidget*> visible_leaves(const QWidget& window);

/// The widget's rectangle in the window's coordinates.
QRect place_in(const QWidget& window, const QWidget& widget);

/// The leaves that reach beyond a widget around them, one line each.
QStringList leaves_out_of_bounds(const QWidget& window);

/// The pairs of leaves that share a pixel, one line each.
QStringList overlapping_leaves(const QWidget& window);

/// The object names of the leaves whose text or picture does not fit into them.
QStringList leaves_with_cut_content(const QWidget& window);

/// Where the objects of one "order" fact are not as stated; empty if nowhere.
QStringList order_differences(const QWidget& window, const QJsonObject& order);

/// Where spacing or margins of a block's layout differ from the fact; empty if nowhere.
QStringList layout_differences(const QWidget& block, const QJsonObject& fact);
