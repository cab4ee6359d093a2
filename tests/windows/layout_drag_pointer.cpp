// SPDX-License-Identifier: MIT

#include "tests/windows/layout_drag_pointer.h"

#include "tests/support/wait_until.h"

#include <QDragMoveEvent>
#include <QMouseEvent>

#include <chrono>

namespace {

constexpr std::chrono::milliseconds look_interval{5};
constexpr int max_step = 15'000;
constexpr int max_run = 90'000;
/// A drag begins with the second movement that the view sees.
constexpr int stops = 4;

QStringList move_command(const QPoint& spot) {
    return {"mousemove", QString::number(spot.x()), QString::number(spot.y())};
}

bool at_once() { return true; }

} // namespace

Pointer::Pointer(QAbstractItemView& table) : view(table) {
    view.viewport()->installEventFilter(this);
    connect(&timer, &QTimer::timeout, this, &Pointer::go_on);
}

void Pointer::press(int row, int column) {
    planned_place = centre(row, column);
    add("go to a cell", move_command(view.viewport()->mapToGlobal(planned_place)), at_once);
    add("press", {"mousedown", "1"}, [this] { return seen.press; });
}

void Pointer::move(int row, int column) {
    const QPoint from = planned_place;
    const QPoint to = centre(row, column);
    for (int stop = 1; stop <= stops; ++stop) {
        move_to(from + (to - from) * stop / stops);
    }
    planned_place = to;
}

void Pointer::leave_to(const QPoint& spot_in_window) {
    // First to the edge within the table, so that the drag has begun before.
    move(3, 0);
    add("leave the table", move_command(view.window()->mapToGlobal(spot_in_window)),
        [this] { return seen.leaving; });
}

void Pointer::release() { add("release", {"mouseup", "1"}, at_once); }

void Pointer::drop() {
    add("drop", {"mouseup", "1"}, [this] { return seen.drop; });
}

void Pointer::escape() {
    add("escape", {"key", "Escape"}, [this] { return seen.leaving; });
}

void Pointer::hold_control() { add("hold control", {"keydown", "ctrl"}, at_once); }

void Pointer::let_control_go() { add("let control go", {"keyup", "ctrl"}, at_once); }

void Pointer::wait_for(const std::function<bool()>& condition) { add("wait", {}, condition); }

void Pointer::drag(int row, int column, int to_row, int to_column) {
    press(row, column);
    move(to_row, to_column);
    drop();
}

void Pointer::click(int row, int column) {
    press(row, column);
    release();
}

bool Pointer::run() {
    failure.clear();
    timer.start(look_interval);
    // The condition is checked only here, so not before a drag's own loop has ended.
    const bool all_done = wait_until([this] { return steps.empty(); }, max_run);
    timer.stop();
    if (!all_done && failure.isEmpty()) {
        failure = "the drag did not end";
    }
    xdotool.waitForFinished();
    return failure.isEmpty();
}

bool Pointer::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        seen.press = true;
        break;
    case QEvent::MouseMove:
        seen.place = static_cast<QMouseEvent*>(event)->position().toPoint();
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
        seen.place = static_cast<QDragMoveEvent*>(event)->position().toPoint();
        break;
    case QEvent::DragLeave:
        seen.leaving = true;
        break;
    case QEvent::Drop:
        seen.drop = true;
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void Pointer::add(const QByteArray& name, const QStringList& command,
                  const std::function<bool()>& is_done) {
    steps.push_back({name, command, is_done});
}

void Pointer::move_to(const QPoint& place) {
    add("drag over the table", move_command(view.viewport()->mapToGlobal(place)),
        [this, place] { return seen.place == place; });
}

QPoint Pointer::centre(int row, int column) const {
    return view.visualRect(view.model()->index(row, column)).center();
}

void Pointer::go_on() {
    if (steps.empty() || xdotool.state() != QProcess::NotRunning) {
        return;
    }
    if (!step_time.isValid()) {
        seen = {};
        step_time.start();
        if (!steps.front().command.isEmpty()) {
            xdotool.start("xdotool", steps.front().command);
        }
        return;
    }
    if (xdotool.error() == QProcess::FailedToStart) {
        give_up("xdotool did not start");
    } else if (steps.front().is_done()) {
        steps.pop_front();
        step_time.invalidate();
    } else if (step_time.hasExpired(max_step)) {
        give_up("the table did not see this: " + steps.front().name);
    }
}

/// Ends a drag that may be in progress.
void Pointer::give_up(const QByteArray& reason) {
    failure = reason;
    steps.clear();
    step_time.invalidate();
    xdotool.start("xdotool", {"key", "Escape", "mouseup", "1", "keyup", "ctrl"});
}
