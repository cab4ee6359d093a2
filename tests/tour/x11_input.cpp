// SPDX-License-Identifier: MIT

#include "tests/tour/x11_input.h"

#include "tests/tour/in_gui.h"
#include "tests/tour/outside.h"

#include <QGuiApplication>
#include <QStringList>

using outside::xdotool;

namespace {

/// The screen counts its own pixels, of which the program's may take several.
QStringList move_to(const QPoint& spot) {
    const double scale = in_gui([] { return qGuiApp->devicePixelRatio(); });
    return {"mousemove", QString::number(qRound(spot.x() * scale)),
            QString::number(qRound(spot.y() * scale))};
}

/// A drag is followed by the program's own event loop: lets it take what has come in.
void let_program_follow() {
    in_gui([] { return true; });
}

} // namespace

void x11_input::click_at(const QPoint& spot) { xdotool(move_to(spot) + QStringList{"click", "1"}); }

void x11_input::press_key(const QString& key) { xdotool({"key", key}); }

void x11_input::type(const QString& text) { xdotool({"type", "--delay", "2", text}); }

void x11_input::drag(const QPoint& from, const QPoint& to) {
    constexpr int stops = 8;
    xdotool(move_to(from) + QStringList{"mousedown", "1"});
    for (int stop = 1; stop <= stops; ++stop) {
        let_program_follow();
        xdotool(move_to(from + (to - from) * stop / stops));
    }
    let_program_follow();
    xdotool({"mouseup", "1"});
}
