// SPDX-License-Identifier: MIT

#include "benchmarks/programs/startup_driver.h"

#include "benchmarks/flush_hook.h"
#include "benchmarks/statistics.h"

#include <QApplication>
#include <QEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace {

Startup_Driver* startup_under_way = nullptr;

bool is_model_dialog(const QWidget& widget) {
    return widget.findChild<QRadioButton*>("radioButton_LITE") != nullptr;
}

bool is_method_dialog(const QWidget& widget) {
    return widget.findChild<QRadioButton*>("radioButton_RS232") != nullptr;
}

} // namespace

Startup_Driver::Startup_Driver(const QString& chosen_model, Arrival arrived)
    : model(chosen_model), arrived_at(std::move(arrived)) {
    startup_under_way = this;
    flush_observer = see_flush;
    qApp->installEventFilter(this);
}

double Startup_Driver::milliseconds_to_window() const {
    return milliseconds_between(begin_ns, end_ns) -
           milliseconds_between(method_shown_ns, method_answered_ns);
}

bool Startup_Driver::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && method_shown_ns == 0) {
        const auto* dialog = qobject_cast<QDialog*>(watched);
        if (dialog != nullptr && is_method_dialog(*dialog)) {
            method_shown_ns = now_ns();
        }
    }
    return QObject::eventFilter(watched, event);
}

void Startup_Driver::see_flush(void* window) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowHandle() == window) {
            startup_under_way->see_on_screen(*widget);
        }
    }
}

void Startup_Driver::see_on_screen(QWidget& widget) {
    if (auto* window = qobject_cast<QMainWindow*>(&widget)) {
        if (!std::exchange(has_arrived, true)) {
            end_ns = now_ns();
            qApp->removeEventFilter(this);
            flush_observer = nullptr;
            window->activateWindow();
            QTimer::singleShot(0, this, [this, window] { arrived_at(*this, *window); });
        }
        return;
    }
    const auto* dialog = qobject_cast<QDialog*>(&widget);
    if (dialog == nullptr) {
        return;
    }
    if (is_model_dialog(*dialog) && !std::exchange(model_answered, true)) {
        QTimer::singleShot(0, this, [this, dialog] { answer_model_dialog(*dialog); });
    }
    if (is_method_dialog(*dialog) && !std::exchange(method_answered, true)) {
        QTimer::singleShot(0, this, [this, dialog] { answer_method_dialog(*dialog); });
    }
}

void Startup_Driver::answer_model_dialog(const QDialog& dialog) {
    for (QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
        if (button->text() == model) {
            button->setChecked(true);
        }
    }
    begin_ns = now_ns();
    dialog.findChild<QPushButton*>("pushButton_Continue")->click();
}

void Startup_Driver::answer_method_dialog(const QDialog& dialog) {
    dialog.findChild<QRadioButton*>("radioButton_RS232")->setChecked(true);
    method_answered_ns = now_ns();
    dialog.findChild<QPushButton*>("pushButton_continue")->click();
}
