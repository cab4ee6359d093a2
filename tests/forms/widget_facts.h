// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QLayoutItem>
#include <QStringList>
#include <QWidget>

/// The differences of the widget of that name from its facts; empty if none. The keys of a fact:
///  - "class", "in" (a block around it), "parent" (its direct parent);
///  - "text", "items", "plain" (markup is shown as its characters);
///  - "fixed", "min", "max": [width, height] in pixels, null is free; "unlimited": "height",
///  "both";
///  - "points", "bold" (false if not given), "family";
///  - "align": of the text; "cell": of the widget in its cell, both in words such as "left
///  vcenter";
///  - "style": the whole style sheet, by kinds or literally; "style_parts": texts within it;
///    "no_style": true if it is empty;
///  - "properties": Qt properties by name, enumerations by key, sizes as [width, height];
///  - "icon_size_unset": true if the icon size is the style's own.
QStringList widget_differences(const QWidget& form, const QString& name, const QJsonObject& fact);

/// The differences of the style sheet from the given parts, with kinds expanded and white space
/// simplified.
QStringList style_differences(const QString& style_sheet, const QStringList& parts);

/// The layout cell that holds the widget, or nullptr.
const QLayoutItem* find_cell(const QWidget& widget);
