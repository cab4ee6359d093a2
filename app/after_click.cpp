// SPDX-License-Identifier: MIT

#include "app/after_click.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace {

bool is_click_under_way() {
    return QGuiApplication::mouseButtons() != Qt::NoButton ||
           QApplication::activePopupWidget() != nullptr ||
           QApplication::activeModalWidget() != nullptr;
}

/// The focus goes while the window is being hidden: it counts as visible for a little longer.
bool is_closing(const QWidget& asker) { return asker.window()->isHidden(); }

/// A waiting step; it is deleted with the widget that started it.
class Waiting_Step : public QObject {
public:
    Waiting_Step(QWidget& asking_widget, std::function<void()> waiting_step)
        : QObject(&asking_widget), asker(asking_widget), step(std::move(waiting_step)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // The event that ends the click has not reached its receiver yet.
        if (!is_queued && !is_click_under_way()) {
            is_queued = true;
            QTimer::singleShot(0, this, [this] { run(); });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void run() {
        is_queued = false;
        if (is_click_under_way()) {
            return;
        }
        qApp->removeEventFilter(this);
        deleteLater();
        if (!is_closing(asker)) {
            step();
        }
    }

    QWidget& asker;
    std::function<void()> step;
    bool is_queued = false;
};

} // namespace

void run_after_click(QWidget& asker, std::function<void()> step) {
    if (is_closing(asker)) {
        return;
    }
    if (QGuiApplication::mouseButtons() == Qt::NoButton) {
        step();
    } else {
        new Waiting_Step(asker, std::move(step));
    }
}
