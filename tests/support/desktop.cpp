// SPDX-License-Identifier: MIT

#include "tests/support/desktop.h"

#include "tests/support/wait_until.h"

#include <QMap>
#include <QRegularExpression>

namespace {

constexpr int max_wait = 20'000;

QString exactly(const QString& title) { return '^' + QRegularExpression::escape(title) + '$'; }

} // namespace

Desktop::Desktop(const QString& screen_size)
    : screen(screen_size),
      window_manager(
          {.program = "openbox", .arguments = {"--sm-disable"}, .display = screen.name()}) {}

bool Desktop::is_ready() const {
    // The first key of all changes the server's key map, and the window manager takes its own keys
    // again; a key that comes just then is lost to it. So the first one is one that means nothing.
    return wait_until([this] { return run_tool({"get_desktop"}); }, max_wait) &&
           run_tool({"key", "Shift_L"});
}

QString Desktop::find_window(const QString& title) const {
    QString window;
    // The search itself fails if another window disappears meanwhile. The window manager manages a
    // window a little after it becomes visible.
    const bool managed = wait_until(
        [&] {
            return run_tool({"search", "--onlyvisible", "--name", exactly(title)}, &window) &&
                   run_tool({"get_desktop_for_window", window});
        },
        max_wait);
    return managed ? window : QString();
}

bool Desktop::shows_window(const QString& title) const {
    return run_tool({"search", "--onlyvisible", "--name", exactly(title)});
}

QMap<QString, int> Desktop::numbers_from(const QStringList& arguments) const {
    Program_Run tool({.program = "xdotool", .arguments = arguments, .display = screen.name()});
    QMap<QString, int> numbers;
    if (tool.wait_for_end(max_wait) && tool.exit_status() == 0) {
        for (const QString& line : QString::fromLatin1(tool.output()).split('\n')) {
            numbers[line.section('=', 0, 0)] = line.section('=', 1).toInt();
        }
    }
    return numbers;
}

QRect Desktop::visible_place_of(const QString& window) const {
    // xdotool counts a window's frame twice in its position, so the mouse finds the corners.
    const QMap<QString, int> size = numbers_from({"getwindowgeometry", "--shell", window});
    const auto corner = [&](int x, int y) {
        const QMap<QString, int> found =
            numbers_from({"mousemove", "--window", window, QString::number(x), QString::number(y),
                          "getmouselocation", "--shell"});
        return QPoint(found["X"], found["Y"]);
    };
    return {corner(0, 0), corner(size["WIDTH"] - 1, size["HEIGHT"] - 1)};
}

bool Desktop::click(const QString& window, const QPoint& place) const {
    return run_tool({"mousemove", "--window", window, QString::number(place.x()),
                     QString::number(place.y()), "click", "1"});
}

bool Desktop::press(const QString& window, const QString& keys) const {
    // Repeated, because the window manager ignores a request while it is still mapping the window.
    QString active;
    const auto becomes_active = [&] {
        return run_tool({"windowactivate", window}) && run_tool({"getactivewindow"}, &active) &&
               active == window;
    };
    if (!wait_until(becomes_active, max_wait)) {
        qWarning("window \"%s\" did not become active, but \"%s\" is", qPrintable(window),
                 qPrintable(active));
        return false;
    }
    return run_tool({"key", keys});
}

bool Desktop::run_tool(const QStringList& arguments, QString* output) const {
    Program_Run tool({.program = "xdotool", .arguments = arguments, .display = screen.name()});
    const bool succeeded = tool.wait_for_end(max_wait) && tool.exit_status() == 0;
    if (output != nullptr) {
        *output = QString::fromLatin1(tool.output()).section('\n', 0, 0);
    }
    return succeeded;
}
