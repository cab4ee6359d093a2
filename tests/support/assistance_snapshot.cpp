// SPDX-License-Identifier: MIT

#include "tests/support/assistance_snapshot.h"

#include "tests/support/find_child.h"

#include <QAccessible>
#include <QApplication>
#include <QTableWidget>
#include <QTest>

#include <algorithm>
#include <array>

namespace {

constexpr std::array control_roles = {QAccessible::Button,       QAccessible::CheckBox,
                                      QAccessible::RadioButton,  QAccessible::ComboBox,
                                      QAccessible::EditableText, QAccessible::Table};

/// The caption of a control. On Linux the name of a combo box is its chosen item; its caption is
/// its label, or else its description.
QString accessible_name(const QAccessibleInterface& control) {
    if (control.role() == QAccessible::ComboBox) {
        for (const auto& [label, relation] : control.relations(QAccessible::Label)) {
            return label->text(QAccessible::Name);
        }
        return control.text(QAccessible::Description);
    }
    return control.text(QAccessible::Name);
}

void collect_names(const QAccessibleInterface& part, QStringList& names) {
    if (std::ranges::find(control_roles, part.role()) != control_roles.end()) {
        names << part.object()->objectName() + ": " + accessible_name(part);
        return;
    }
    for (int child = 0; child < part.childCount(); ++child) {
        if (const QAccessibleInterface* inner = part.child(child)) {
            collect_names(*inner, names);
        }
    }
}

} // namespace

QStringList accessible_names(QWidget& window) {
    QStringList names;
    collect_names(*QAccessible::queryAccessibleInterface(&window), names);
    names.sort();
    return names;
}

QStringList accessible_cells(QWidget& window, const QString& table) {
    auto& widget = find_child<QTableWidget>(window, table);
    QAccessibleTableInterface* cells =
        QAccessible::queryAccessibleInterface(&widget)->tableInterface();
    QStringList names;
    for (int row = 0; row < cells->rowCount(); ++row) {
        for (int column = 0; column < cells->columnCount(); ++column) {
            const QString name = cells->cellAt(row, column)->text(QAccessible::Name);
            if (!name.isEmpty()) {
                names << name;
            }
        }
    }
    return names;
}

QStringList tab_walk(QWidget& window) {
    constexpr int max_steps = 100;
    const QWidget* first = window.focusWidget();
    QStringList names;
    for (int step = 0; step < max_steps; ++step) {
        QWidget* now = window.focusWidget();
        if (now == nullptr || (step > 0 && now == first)) {
            break;
        }
        names << now->objectName();
        QTest::keyClick(now, Qt::Key_Tab);
    }
    return names;
}
