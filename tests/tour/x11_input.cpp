// SPDX-License-Identifier: MIT

#include "tests/tour/x11_input.h"

#include "tests/tour/in_gui.h"
#include "tests/tour/outside.h"

#include <QDragMoveEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QStringList>
#include <QThread>
#include <QWindow>

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

using outside::xdotool;

namespace {

/// The screen counts device pixels; a pixel of the program may be several of them.
double pixel_scale() {
    return in_gui([] { return qGuiApp->devicePixelRatio(); });
}

QStringList move_to(const QPoint& spot, double scale) {
    return {"mousemove", QString::number(qRound(spot.x() * scale)),
            QString::number(qRound(spot.y() * scale))};
}

/// The progress of a drag, for both threads.
struct Drag_Progress {
    explicit Drag_Progress(const QPoint& spot) : target(spot) {}

    const QPoint target;
    std::atomic<bool> pressed = false;
    std::atomic<bool> arrived = false;
};

/// How near a drag must come to its target, in pixels.
constexpr int reach = 3;

/// Records the drag events of the program's windows.
class Drag_Watch : public QObject {
public:
    explicit Drag_Watch(std::shared_ptr<Drag_Progress> told) : progress(std::move(told)) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) {
            progress->pressed = true;
        } else if (event->type() == QEvent::DragMove && watched->isWindowType()) {
            const auto& move = static_cast<const QDragMoveEvent&>(*event);
            const QPointF spot = static_cast<const QWindow*>(watched)->mapToGlobal(move.position());
            progress->arrived = (spot.toPoint() - progress->target).manhattanLength() <= reach;
        }
        return false;
    }

private:
    std::shared_ptr<Drag_Progress> progress;
};

/// Repeats an action until it has had an effect.
void go_on_until(const QString& effect, const std::function<bool()>& seen,
                 const std::function<void()>& action) {
    constexpr unsigned long look_again_ms = 15;
    QElapsedTimer waited;
    waited.start();
    while (!seen()) {
        if (waited.hasExpired(std::chrono::milliseconds(gui_patience).count())) {
            throw Step_Failed("the program does not hear of " + effect);
        }
        action();
        QThread::msleep(look_again_ms);
    }
}

} // namespace

void x11_input::click_at(const QPoint& spot) {
    xdotool(move_to(spot, pixel_scale()) + QStringList{"click", "1"});
}

void x11_input::press_key(const QString& key) { xdotool({"key", key}); }

void x11_input::type(const QString& text) { xdotool({"type", "--delay", "2", text}); }

void x11_input::drag(const QPoint& from, const QPoint& to) {
    const auto progress = std::make_shared<Drag_Progress>(to);
    const auto* watch = in_gui([progress] {
        auto* made = new Drag_Watch(progress);
        qApp->installEventFilter(made);
        return made;
    });

    const double scale = pixel_scale();
    xdotool(move_to(from, scale) + QStringList{"mousedown", "1"});
    go_on_until(
        "the pressed button", [&] { return progress->pressed.load(); }, [] {});
    constexpr int stops = 8;
    for (int stop = 1; stop <= stops; ++stop) {
        xdotool(move_to(from + (to - from) * stop / stops, scale));
    }
    // At the beginning of a drag the event loop of Windows handles only moves of the mouse, so its
    // progress can't be queried. A user's hand never rests completely either.
    QPoint tremble(1, 0);
    go_on_until(
        "the drag", [&] { return progress->arrived.load(); },
        [&] {
            xdotool(move_to(to + tremble, scale));
            tremble = -tremble;
        });
    xdotool({"mouseup", "1"});

    in_gui([watch] {
        delete watch;
        return true;
    });
}
