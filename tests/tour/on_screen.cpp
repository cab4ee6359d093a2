// SPDX-License-Identifier: MIT

#include "tests/tour/on_screen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QTableWidget>
#include <QTextEdit>
#include <QWindow>

namespace {

QWidgetList visible_windows() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return {modal};
    }
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            windows.append(window);
        }
    }
    return windows;
}

QTableWidget* grid() { return qobject_cast<QTableWidget*>(on_screen::find("tableWidget")); }

/// A radio button or a check box accepts clicks on its mark and its text, which are at the left.
QPoint answering_spot(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button == nullptr || !button->isCheckable()) {
        return widget.rect().center();
    }
    const int mark_width = widget.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &widget);
    return {mark_width / 2, widget.rect().center().y()};
}

bool is_uncovered_at(const QWidget& widget, const QPoint& spot) {
    const QWidget* top = QApplication::widgetAt(spot);
    return top != nullptr && (top == &widget || widget.isAncestorOf(top));
}

} // namespace

QWidget* on_screen::find(const QString& object_name) {
    for (const QString& name : {object_name, object_name + "_2"}) {
        for (const QWidget* window : visible_windows()) {
            if (auto* widget = window->findChild<QWidget*>(name)) {
                return widget;
            }
        }
    }
    return nullptr;
}

QString on_screen::shown(const QWidget& widget) {
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        return combo->currentText();
    }
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        return edit->text();
    }
    if (const auto* text = qobject_cast<const QTextEdit*>(&widget)) {
        return text->toPlainText();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (button->isCheckable()) {
            return button->isChecked() ? "checked" : "unchecked";
        }
        return button->text();
    }
    return {};
}

std::optional<QPoint> on_screen::clickable_spot(QWidget& widget) {
    const QPoint spot = widget.mapToGlobal(answering_spot(widget));
    if (!widget.isVisible() || !widget.isEnabled() || !widget.window()->isActiveWindow() ||
        !is_uncovered_at(widget, spot)) {
        return std::nullopt;
    }
    return spot;
}

std::optional<QPoint> on_screen::cell_spot(int row, int column) {
    const QTableWidget* table = grid();
    if (table == nullptr || !table->isVisible()) {
        return std::nullopt;
    }
    const QModelIndex cell = table->model()->index(row, column);
    const QPoint spot = table->viewport()->mapToGlobal(table->visualRect(cell).center());
    return is_uncovered_at(*table, spot) ? std::optional(spot) : std::nullopt;
}

QStringList on_screen::grid_texts() {
    QStringList texts;
    const QTableWidget* table = grid();
    for (int cell = 0; table != nullptr && cell < table->rowCount() * table->columnCount();
         ++cell) {
        const QTableWidgetItem* tile =
            table->item(cell / table->columnCount(), cell % table->columnCount());
        texts.append(tile == nullptr ? "-" : tile->text());
    }
    return texts;
}

QString on_screen::box_text() {
    const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    return box == nullptr ? QString() : box->text();
}

QWidget* on_screen::dialog_button(const QString& caption) {
    const QWidget* dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) {
        return nullptr;
    }
    for (QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text().remove('&') == caption) {
            return button;
        }
    }
    return nullptr;
}

QString on_screen::windows() {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            const auto* box = qobject_cast<const QMessageBox*>(window);
            names.append(QString("%1 \"%2\" %3")
                             .arg(window->metaObject()->className(), window->windowTitle(),
                                  box == nullptr ? QString() : box->text()));
        }
    }
    return names.join(", ");
}

bool on_screen::is_painted() {
    const QWidget* window = QApplication::activeWindow();
    const QWindow* handle = window == nullptr ? nullptr : window->windowHandle();
    return handle != nullptr && handle->isExposed() && !handle->frameMargins().isNull();
}

void on_screen::repaint() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            window->repaint();
        }
    }
}

bool on_screen::save_picture(const QString& path) {
    QRect seen;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            // A widget may have asked for its frame too early, and keeps this answer.
            seen |= window->windowHandle()->frameGeometry();
        }
    }
    QScreen& screen = *QGuiApplication::primaryScreen();
    const QPixmap whole = screen.grabWindow(0);
    const QRectF part = seen & screen.geometry();
    const double scale = whole.devicePixelRatio();
    return whole.copy(QRectF(part.topLeft() * scale, part.size() * scale).toAlignedRect())
        .save(path);
}
