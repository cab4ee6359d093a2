// SPDX-License-Identifier: MIT

#include "tests/end_to_end/modal_responder.h"

#include "tests/support/modal_action.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QFontInfo>
#include <QMainWindow>
#include <QMessageBox>

#include <array>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr int look_interval_ms = 5;

QString name_and_title(const QWidget& window) {
    return QString("%1 \"%2\"").arg(window.metaObject()->className(), window.windowTitle());
}

QString modal_line(const QWidget& modal) {
    QString line = "modal " + name_and_title(modal);
    if (const auto* box = qobject_cast<const QMessageBox*>(&modal)) {
        line += QString(" \"%1\" icon %2").arg(box->text()).arg(box->icon());
        for (const QAbstractButton* button : box->buttons()) {
            line += ' ' + button->text().remove('&');
        }
    }
    return line.replace('\n', '/');
}

/// Reports when an object is destroyed. The object must be fully constructed by now.
void report_destruction(const QObject& object) {
    const QString class_name = object.metaObject()->className();
    QObject::connect(&object, &QObject::destroyed, [class_name] { report("gone " + class_name); });
}

QString fonts_line() {
    const QFont font = QApplication::font();
    return QString("fonts %1 %2, for Segoe UI %3")
        .arg(QFontInfo(font).family())
        .arg(font.pointSize())
        .arg(QFontInfo(QFont("Segoe UI", 12)).family());
}

QString set_caption(const QWidget& modal, const QString& name, const QString& caption) {
    auto* button = modal.findChild<QAbstractButton*>(name);
    if (button == nullptr) {
        return "no button " + name;
    }
    button->setText(caption);
    return {};
}

/// Does one action; returns the reason if it was not possible.
QString act(QWidget& modal, const QString& action) {
    if (action == "frame") {
        return close_by_frame()(modal);
    }
    if (action == "escape") {
        return press_key(Qt::Key_Escape)(modal);
    }
    if (action.contains('=')) {
        return set_caption(modal, action.section('=', 0, 0), action.section('=', 1));
    }
    const bool is_object_name = modal.findChild<QAbstractButton*>(action) != nullptr;
    return (is_object_name ? press_object(action) : press_button(action))(modal);
}

} // namespace

void report(const QString& line) {
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

Modal_Responder::Modal_Responder() : input(STDIN_FILENO, QSocketNotifier::Read) {
    connect(&input, &QSocketNotifier::activated, this, &Modal_Responder::read_input);
    connect(&timer, &QTimer::timeout, this, &Modal_Responder::look);
    timer.start(look_interval_ms);
    qApp->installEventFilter(this);
}

bool Modal_Responder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->inherits("QMainWindow")) {
        report("shown " + name_and_title(static_cast<const QWidget&>(*watched)));
        report_destruction(*watched);
    }
    return QObject::eventFilter(watched, event);
}

void Modal_Responder::read_input() {
    std::array<char, 1000> block = {};
    const ssize_t count = ::read(STDIN_FILENO, block.data(), block.size());
    if (count <= 0) {
        input.setEnabled(false);
        return;
    }
    unread.append(block.data(), static_cast<qsizetype>(count));
    for (qsizetype end = unread.indexOf('\n'); end >= 0; end = unread.indexOf('\n')) {
        const QString line = QString::fromUtf8(unread.left(end));
        unread.remove(0, end + 1);
        obey(line);
    }
}

void Modal_Responder::obey(const QString& line) {
    const QString answer_word = "answer ";
    if (line.startsWith(answer_word)) {
        answers.append(line.mid(answer_word.size()));
    } else if (line == "close") {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (qobject_cast<QMainWindow*>(window) != nullptr && window->isVisible()) {
                window->close();
            }
        }
    } else if (line == "fonts") {
        report(fonts_line());
    } else if (line == "theme font") {
        QApplication::setFont(QFont("DejaVu Sans", 12));
    } else {
        report("failed: not understood: " + line);
    }
}

void Modal_Responder::look() {
    QWidget* modal = QApplication::activeModalWidget();
    if (met != nullptr && !met->isVisible()) {
        met.clear();
    }
    if (modal == nullptr || !modal->isVisible()) {
        return;
    }
    if (met != modal) {
        met = modal;
        report(modal_line(*modal));
        if (modal->inherits("Select_KM_type_Dialog")) {
            report_destruction(*modal);
        }
    }
    if (answers.isEmpty()) {
        return;
    }
    for (const QString& action : answers.takeFirst().split(',')) {
        const QString reason = met == nullptr ? "the window is gone" : act(*met, action);
        if (!reason.isEmpty()) {
            report("failed " + reason);
            return;
        }
    }
}
