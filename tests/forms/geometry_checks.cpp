// SPDX-License-Identifier: MIT

#include "tests/forms/geometry_checks.h"

#include "tests/forms/fact_file.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QJsonArray>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTableWidget>
#include <QTextEdit>

#include <algorithm>

namespace {

bool is_leaf(const QWidget& widget) {
    return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QTextEdit*>(&widget) || qobject_cast<const QTableWidget*>(&widget);
}

/// True if the widget is inside another leaf, such as the corner button of a table.
bool is_inside_leaf(const QWidget& widget) {
    for (const QWidget* outer = widget.parentWidget(); outer; outer = outer->parentWidget()) {
        if (is_leaf(*outer)) {
            return true;
        }
    }
    return false;
}

bool fits(QSize needed, QSize room) {
    return needed.width() <= room.width() && needed.height() <= room.height();
}

bool label_fits(const QLabel& label) {
    const QRect room = label.contentsRect();
    if (!label.pixmap().isNull()) {
        // On a scaled screen newer versions of Qt choose a pixmap with more pixels.
        return fits(label.pixmap().deviceIndependentSize().toSize(), room.size());
    }
    const int flags = label.wordWrap() ? Qt::TextWordWrap : Qt::TextSingleLine;
    const QRect needed = label.fontMetrics().boundingRect(
        QRect(0, 0, room.width(), QWIDGETSIZE_MAX), flags, label.text());
    return fits(needed.size(), room.size());
}

bool button_fits(const QAbstractButton& button, QStyle::SubElement contents) {
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    option.icon = button.icon();
    option.iconSize = button.iconSize();
    const QRect room = button.style()->subElementRect(contents, &option, &button);
    const QSize text(button.fontMetrics().horizontalAdvance(button.text()),
                     button.text().isEmpty() ? 0 : button.fontMetrics().height());
    return fits(text, room.size()) &&
           (button.icon().isNull() || fits(button.iconSize(), room.size()));
}

/// A combo box must show each of its items; the space above and below the letters may be cut. The
/// application's style returns the rectangle in which it draws the text, one pixel in from each
/// side.
bool combo_box_fits(const QComboBox& box) {
    QStyleOptionComboBox option;
    option.initFrom(&box);
    option.frame = box.hasFrame();
    const QRect room =
        QApplication::style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
            .adjusted(1, 0, -1, 0);
    for (int i = 0; i < box.count(); ++i) {
        const QSize needed(box.fontMetrics().horizontalAdvance(box.itemText(i)),
                           box.fontMetrics().tightBoundingRect(box.itemText(i)).height());
        if (!fits(needed, room.size())) {
            return false;
        }
    }
    return true;
}

bool content_fits(const QWidget& leaf) {
    if (const auto* label = qobject_cast<const QLabel*>(&leaf)) {
        return label_fits(*label);
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&leaf)) {
        return button_fits(*button, QStyle::SE_PushButtonContents);
    }
    if (const auto* radio = qobject_cast<const QRadioButton*>(&leaf)) {
        return button_fits(*radio, QStyle::SE_RadioButtonContents);
    }
    if (const auto* check = qobject_cast<const QCheckBox*>(&leaf)) {
        return button_fits(*check, QStyle::SE_CheckBoxContents);
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&leaf)) {
        return combo_box_fits(*box);
    }
    return leaf.height() >= leaf.minimumSizeHint().height();
}

QString print(const QRect& rect) {
    return QString("(%1, %2, %3 x %4)")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

/// First and last pixel along the direction of the order, and across it.
struct Extent {
    int first;
    int last;
    int side_first;
    int side_last;
};

Extent extent(const QRect& place, bool down) {
    if (down) {
        return {place.top(), place.bottom(), place.left(), place.right()};
    }
    return {place.left(), place.right(), place.top(), place.bottom()};
}

/// Empty if `second` follows `first` at the given distance, and in a row on the same line.
QString check_step(const Extent& first, const Extent& second, bool down, const QJsonValue& gap) {
    const int distance = second.first - first.last - 1;
    if (distance < 0) {
        return QString("%1 pixels before the end of").arg(-distance);
    }
    if (!down && (first.side_last < second.side_first || second.side_last < first.side_first)) {
        return "not in one line with";
    }
    if (gap.isDouble() && distance != gap.toInt()) {
        return QString("%1 pixels instead of %2 behind").arg(distance).arg(gap.toInt());
    }
    return QString();
}

} // namespace

QList<QWidget*> visible_leaves(const QWidget& window) {
    QList<QWidget*> leaves = window.findChildren<QWidget*>();
    const auto unwanted = [](const QWidget* widget) {
        return !widget->isVisible() || !is_leaf(*widget) || is_inside_leaf(*widget);
    };
    leaves.erase(std::remove_if(leaves.begin(), leaves.end(), unwanted), leaves.end());
    return leaves;
}

QRect place_in(const QWidget& window, const QWidget& widget) {
    return QRect(widget.mapTo(&window, QPoint(0, 0)), widget.size());
}

QStringList leaves_out_of_bounds(const QWidget& window) {
    QStringList lines;
    for (const QWidget* leaf : visible_leaves(window)) {
        const QRect place = place_in(window, *leaf);
        for (const QWidget* outer = leaf->parentWidget(); outer; outer = outer->parentWidget()) {
            const QRect bounds = place_in(window, *outer);
            if (!place.isEmpty() && !bounds.contains(place)) {
                lines.append(
                    QString("%1 %2 is not within %3 %4")
                        .arg(leaf->objectName(), print(place), outer->objectName(), print(bounds)));
            }
        }
    }
    return lines;
}

QStringList overlapping_leaves(const QWidget& window) {
    QStringList lines;
    const QList<QWidget*> leaves = visible_leaves(window);
    for (qsizetype i = 0; i < leaves.size(); ++i) {
        for (qsizetype j = i + 1; j < leaves.size(); ++j) {
            const QRect one = place_in(window, *leaves[i]);
            const QRect other = place_in(window, *leaves[j]);
            if (one.intersects(other)) {
                lines.append(leaves[i]->objectName() + ' ' + print(one) + " overlaps " +
                             leaves[j]->objectName() + ' ' + print(other));
            }
        }
    }
    return lines;
}

QStringList leaves_with_cut_content(const QWidget& window) {
    QStringList names;
    for (const QWidget* leaf : visible_leaves(window)) {
        if (!content_fits(*leaf)) {
            names.append(leaf->objectName());
        }
    }
    return names;
}

QStringList order_differences(const QWidget& window, const QJsonObject& order) {
    const bool down = order.contains("down");
    const QStringList names = to_texts(order[down ? "down" : "right"]);
    QStringList lines;
    for (qsizetype i = 0; i + 1 < names.size(); ++i) {
        const auto* first = window.findChild<QWidget*>(names[i]);
        const auto* second = window.findChild<QWidget*>(names[i + 1]);
        if (!first || !second) {
            lines.append("no " + (first ? names[i + 1] : names[i]));
            continue;
        }
        const QString fault =
            check_step(extent(place_in(window, *first), down),
                       extent(place_in(window, *second), down), down, order["gap"]);
        if (!fault.isEmpty()) {
            lines.append(names[i + 1] + " is " + fault + ' ' + names[i]);
        }
    }
    return lines;
}

QStringList layout_differences(const QWidget& block, const QJsonObject& fact) {
    if (!block.layout()) {
        return {"no layout"};
    }
    QStringList lines;
    if (fact.contains("spacing") && block.layout()->spacing() != fact["spacing"].toInt()) {
        lines.append(QString("spacing %1").arg(block.layout()->spacing()));
    }
    const QMargins margins = block.layout()->contentsMargins();
    const int found[] = {margins.left(), margins.top(), margins.right(), margins.bottom()};
    const QStyle::PixelMetric defaults[] = {QStyle::PM_LayoutLeftMargin, QStyle::PM_LayoutTopMargin,
                                            QStyle::PM_LayoutRightMargin,
                                            QStyle::PM_LayoutBottomMargin};
    const QJsonArray told = fact["margins"].toArray();
    for (qsizetype side = 0; side < told.size(); ++side) {
        const int wanted = told[side] == "default"
                               ? block.style()->pixelMetric(defaults[side], nullptr, &block)
                               : told[side].toInt();
        if (!told[side].isNull() && found[side] != wanted) {
            lines.append(QString("margin %1 is %2").arg(side).arg(found[side]));
        }
    }
    return lines;
}
