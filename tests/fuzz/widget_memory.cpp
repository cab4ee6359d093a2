// SPDX-License-Identifier: MIT

#include "tests/fuzz/widget_memory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMetaProperty>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QTextEdit>

namespace {

using Restorer = std::function<void()>;

QStringList items_of(const QComboBox& combo) {
    QStringList items;
    for (int i = 0; i < combo.count(); ++i) {
        items << combo.itemText(i);
    }
    return items;
}

Restorer restorer_of(QComboBox& combo) {
    return [&combo, items = items_of(combo), index = combo.currentIndex()] {
        if (items_of(combo) != items) {
            combo.clear();
            combo.addItems(items);
        }
        combo.setCurrentIndex(index);
    };
}

Restorer restorer_of(QTableWidget& table) {
    return
        [&table, drag = table.dragEnabled(), mode = table.dragDropMode(),
         selection = table.selectionMode(), movable = table.verticalHeader()->sectionsMovable()] {
            table.clear();
            table.setDragEnabled(drag);
            table.setDragDropMode(mode);
            table.setSelectionMode(selection);
            table.verticalHeader()->setSectionsMovable(movable);
        };
}

/// What is specific to a kind of widget; nothing for a kind that nothing changes.
Restorer restorer_of_content(QWidget& widget) {
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
        return restorer_of(*combo);
    }
    if (auto* table = qobject_cast<QTableWidget*>(&widget)) {
        return restorer_of(*table);
    }
    if (auto* label = qobject_cast<QLabel*>(&widget)) {
        return [label, text = label->text()] {
            // A label that never had a text has another size than one whose text is empty.
            if (label->text() != text && text.isEmpty()) {
                label->clear();
            }
            label->setText(text);
        };
    }
    if (auto* edit = qobject_cast<QLineEdit*>(&widget)) {
        return [edit, text = edit->text()] { edit->setText(text); };
    }
    if (auto* box = qobject_cast<QCheckBox*>(&widget)) {
        return [box, checked = box->isChecked()] { box->setChecked(checked); };
    }
    if (auto* edit = qobject_cast<QTextEdit*>(&widget)) {
        return [edit] { edit->clear(); };
    }
    return {};
}

Restorer restorer_of_looks(QWidget& widget) {
    return [&widget, enabled = !widget.testAttribute(Qt::WA_ForceDisabled),
            style = widget.styleSheet(), name = widget.accessibleName()] {
        widget.setAccessibleName(name);
        if (widget.testAttribute(Qt::WA_ForceDisabled) == enabled) {
            widget.setEnabled(enabled);
        }
        if (widget.styleSheet() != style) {
            widget.setStyleSheet(style);
        }
    };
}

/// Content and flags. Positions and sizes follow from the rest when Qt lays the widgets out,
/// colours and fonts from the style sheets.
bool is_worth_describing(const QMetaProperty& property) {
    static const QByteArrayList measures = {"x", "y", "width", "height"};
    const int type = property.metaType().id();
    const bool is_plain =
        type == QMetaType::Bool || type == QMetaType::Int || type == QMetaType::QString;
    return property.isReadable() && (is_plain || property.isEnumType()) &&
           !measures.contains(property.name());
}

void describe(const QWidget& widget, QByteArrayList& lines) {
    const QByteArray name =
        QByteArray(widget.metaObject()->className()) + " " + widget.objectName().toUtf8() + " ";
    for (int i = 0; i < widget.metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = widget.metaObject()->property(i);
        if (is_worth_describing(property)) {
            lines << name + property.name() + " " + property.read(&widget).toString().toUtf8();
        }
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        lines << name + "items " + items_of(*combo).join('|').toUtf8();
    }
    if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) {
        for (int row = 0; row < table->rowCount(); ++row) {
            for (int column = 0; column < table->columnCount(); ++column) {
                const QTableWidgetItem* item = table->item(row, column);
                lines << name + (item == nullptr ? QByteArray("empty")
                                                 : item->text().toUtf8() +
                                                       item->background().color().name().toUtf8());
            }
        }
    }
}

} // namespace

Widget_Memory::Widget_Memory(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        restorers.push_back(restorer_of_looks(*widget));
        if (Restorer restore_content = restorer_of_content(*widget)) {
            restorers.push_back([widget, restore_content] {
                const QSignalBlocker silent(widget);
                restore_content();
            });
        }
    }
}

void Widget_Memory::restore() const {
    for (const Restorer& restore_one : restorers) {
        restore_one();
    }
}

QByteArrayList description_of(const QWidget& window) {
    QByteArrayList lines;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        describe(*widget, lines);
    }
    return lines;
}
