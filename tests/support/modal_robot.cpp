// SPDX-License-Identifier: MIT

#include "tests/support/modal_robot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QLabel>

namespace {

constexpr std::chrono::milliseconds look_interval{5};

Modal_Snapshot look_at(const QWidget& modal) {
    Modal_Snapshot snapshot;
    snapshot.class_name = modal.metaObject()->className();
    snapshot.object_name = modal.objectName();
    snapshot.title = modal.windowTitle();
    for (const QLabel* label : modal.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty()) {
            snapshot.label_texts.append(label->text());
        }
    }
    snapshot.text = snapshot.label_texts.join('\n');
    if (const auto* box = qobject_cast<const QMessageBox*>(&modal)) {
        snapshot.text = box->text();
        snapshot.icon = box->icon();
        snapshot.text_format = box->textFormat();
    }
    for (const QAbstractButton* button : modal.findChildren<QAbstractButton*>()) {
        if (button->isVisible()) {
            snapshot.buttons.append(button->text().remove('&'));
        }
    }
    return snapshot;
}

/// Nothing if the widget matches, otherwise each difference.
QStringList differences(const Modal_Expectation& wanted, const Modal_Snapshot& snapshot,
                        const QWidget& modal) {
    QStringList points;
    if (!wanted.class_name.isEmpty() && !modal.inherits(wanted.class_name.toLatin1())) {
        points.append("class is not " + wanted.class_name);
    }
    if (wanted.object_name && *wanted.object_name != snapshot.object_name) {
        points.append("object name is not " + *wanted.object_name);
    }
    if (wanted.title && *wanted.title != snapshot.title) {
        points.append("title is not \"" + *wanted.title + '"');
    }
    if (wanted.text && *wanted.text != snapshot.text &&
        !snapshot.label_texts.contains(*wanted.text)) {
        points.append("text is not \"" + *wanted.text + '"');
    }
    if (wanted.icon && wanted.icon != snapshot.icon) {
        points.append(QString("icon is not %1").arg(*wanted.icon));
    }
    if (wanted.buttons && *wanted.buttons != snapshot.buttons) {
        points.append("buttons are not " + wanted.buttons->join(", "));
    }
    return points;
}

} // namespace

QString Modal_Snapshot::to_string() const {
    return QString("%1 %2, title \"%3\", text \"%4\", icon %5, buttons %6")
        .arg(class_name, object_name, title, text, icon ? QString::number(*icon) : QString("none"),
             buttons.join(", "));
}

Modal_Robot::Modal_Robot(QObject* parent) : QObject(parent) {
    connect(&timer, &QTimer::timeout, this, &Modal_Robot::look);
    timer.start(look_interval);
}

void Modal_Robot::expect(const Modal_Expectation& expectation) {
    expectations.push_back(expectation);
    if (!expectation.action) {
        expectations.back().action = press_key(Qt::Key_Return);
    }
}

const char* Modal_Robot::why() const {
    QStringList lines = failure_texts;
    for (const Modal_Expectation& expectation : expectations) {
        lines.append(QString("still expected: %1 %2 \"%3\"")
                         .arg(expectation.class_name, expectation.title.value_or(QString()),
                              expectation.text.value_or(QString())));
    }
    why_text = lines.join('\n').toUtf8();
    return why_text.constData();
}

void Modal_Robot::look() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible() || modal == awaiting_action) {
        return;
    }
    // A window manager may activate it some time after it is shown. If it were hidden before that,
    // Qt would take the hidden widget for the active one.
    if (QGuiApplication::platformName() == "xcb" && !modal->isActiveWindow()) {
        return;
    }
    known.removeAll(nullptr);
    if (known.contains(modal)) {
        meet_again(*modal);
    } else {
        meet(*modal);
    }
}

void Modal_Robot::meet(QWidget& modal) {
    known.append(&modal);
    modal.installEventFilter(this);
    waited = std::chrono::milliseconds(0);

    const Modal_Snapshot snapshot = look_at(modal);
    all_snapshots.append(snapshot);
    if (expectations.empty()) {
        dismiss(modal, "not expected: " + snapshot.to_string());
        return;
    }
    const Modal_Expectation wanted = expectations.front();
    expectations.pop_front();
    const QStringList points = differences(wanted, snapshot, modal);
    if (points.isEmpty()) {
        act(modal, wanted.action, [this] { report_gone(); });
    } else {
        dismiss(modal, points.join(", ") + ": " + snapshot.to_string());
    }
}

void Modal_Robot::meet_again(QWidget& modal) {
    const Modal_Snapshot snapshot = look_at(modal);
    if (!expectations.empty() && differences(expectations.front(), snapshot, modal).isEmpty()) {
        const Modal_Expectation wanted = expectations.front();
        expectations.pop_front();
        all_snapshots.append(snapshot);
        waited = std::chrono::milliseconds(0);
        // It may be about to close, between the end of a box above it and its own. Then the
        // expectation is for the next widget.
        act(modal, wanted.action, [this, wanted] {
            expectations.push_front(wanted);
            all_snapshots.removeLast();
        });
        return;
    }
    waited += look_interval;
    if (waited >= patience) {
        waited = std::chrono::milliseconds(0);
        dismiss(modal, "left open: " + snapshot.to_string());
    }
}

void Modal_Robot::report_gone() {
    failure_texts.append("a modal widget was gone before it could be answered");
}

void Modal_Robot::act(QWidget& modal, const Modal_Action& action,
                      const std::function<void()>& if_gone) {
    // Outside the timer's own signal: Qt does not let a timer fire again inside it, and the action
    // may open the next modal widget.
    awaiting_action = &modal;
    QTimer::singleShot(0, this, [this, action, if_gone, widget = QPointer<QWidget>(&modal)] {
        awaiting_action = nullptr;
        if (widget.isNull() || !widget->isVisible()) {
            if_gone();
            return;
        }
        const QString class_name = widget->metaObject()->className();
        const QString failure = action(*widget);
        if (failure.isEmpty()) {
            return;
        }
        if (widget.isNull()) {
            failure_texts.append(class_name + ": " + failure);
        } else {
            dismiss(*widget, failure + ", in: " + look_at(*widget).to_string());
        }
    });
}

void Modal_Robot::dismiss(QWidget& modal, const QString& failure) {
    failure_texts.append(failure);
    const auto close = [](QWidget& widget) {
        const QPointer<QWidget> still_there(&widget);
        if (auto* dialog = qobject_cast<QDialog*>(&widget)) {
            dialog->reject();
        }
        // A widget that refuses to close would block the test for ever.
        if (still_there && still_there->isVisible()) {
            still_there->hide();
        }
        return QString();
    };
    act(modal, close, [this] { report_gone(); });
}

bool Modal_Robot::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide) {
        known.removeAll(static_cast<QWidget*>(watched));
        watched->removeEventFilter(this);
    }
    return QObject::eventFilter(watched, event);
}

QStringList windows_left() {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) {
            names.append(
                QString("%1 %2").arg(window->metaObject()->className(), window->objectName()));
        }
    }
    return names;
}
