// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonObject>
#include <QStringList>

/// The facts of one form from facts/<form>.json, by the form's class name.
///
/// Keys of the file:
///  - "class", "design_size", "title", "style": of the window itself.
///  - "pages", "page_index": the stack's pages in order and the one that the form makes current.
///  - "layouts": spacing and margins (left, top, right, bottom) of a block's layout; null is free,
///    "default" is the style's own.
///  - "order": objects that are next to ("right") or below ("down") one another on a "page",
///    "gap" pixels apart where that is fixed.
///  - "slots": the slots that the windows connect by name; "unslotted": those that must match no
///  object.
///  - "absent": objects that only other forms have.
///  - "styled_frames": frames with the platform's styled look.
///  - "cut_in_dejavu_sans": texts that a stated limit cuts in that wide font.
///  - "widgets": per object the facts that widget_differences() reads.
QJsonObject read_facts(const QString& class_name);

/// The style texts that recur ("Button", "Box", ...), by name.
const QJsonObject& style_kinds();

/// A JSON array of texts.
QStringList to_texts(const QJsonValue& value);
