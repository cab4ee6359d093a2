// SPDX-License-Identifier: MIT

#include "tests/tour/tour_driver.h"

#include "tests/tour/in_gui.h"
#include "tests/tour/on_screen.h"
#include "tests/tour/outside.h"
#include "tests/tour/stages.h"
#include "tests/tour/x11_input.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include <future>
#include <memory>
#include <optional>

namespace {

/// A busy machine may need half a minute for one list to open under Wine.
constexpr qint64 patience_ms = 120'000;
/// The interval between two looks at the windows.
constexpr unsigned long look_again_ms = 15;

/// Repeats a look until it finds something.
template <typename Look>
auto await(const QString& what, const Look& look) -> typename decltype(look())::value_type {
    QElapsedTimer waited;
    waited.start();
    for (;;) {
        if (const auto seen = in_gui(look)) {
            return *seen;
        }
        if (waited.elapsed() > patience_ms) {
            throw Step_Failed(what + " is not to be seen; windows: " + in_gui(on_screen::windows));
        }
        QThread::msleep(look_again_ms);
    }
}

constexpr int columns = 4;

} // namespace

Tour_Driver::Tour_Driver(const QString& stage_name, const QString& picture_folder)
    : stage(stage_name), pictures(picture_folder) {}

void Tour_Driver::click(const QString& widget) {
    click_on(widget, [widget] { return on_screen::find(widget); });
}

void Tour_Driver::click_button(const QString& caption) {
    click_on('"' + caption + '"', [caption] { return on_screen::dialog_button(caption); });
}

void Tour_Driver::click_on(const QString& what, const std::function<QWidget*()>& find) {
    const auto spot_now = [find]() -> std::optional<QPoint> {
        QWidget* widget = find();
        return widget == nullptr ? std::nullopt : on_screen::clickable_spot(*widget);
    };
    // The window manager may still move a window that has just appeared.
    for (;;) {
        const QPoint spot = await(what + " to click", spot_now);
        QThread::msleep(look_again_ms);
        if (in_gui(spot_now) == spot) {
            x11_input::click_at(spot);
            return;
        }
    }
}

void Tour_Driver::choose(const QString& combo_box, const QString& item) {
    const int index = await(combo_box + " with " + item, [=]() -> std::optional<int> {
        const auto* combo = qobject_cast<QComboBox*>(on_screen::find(combo_box));
        const int found = combo == nullptr ? -1 : combo->findText(item);
        return found < 0 ? std::nullopt : std::optional(found);
    });
    click(combo_box);
    see("the list of " + combo_box, [] { return QApplication::activePopupWidget() != nullptr; });
    x11_input::press_key("Home");
    for (int down = 0; down < index; ++down) {
        x11_input::press_key("Down");
    }
    x11_input::press_key("Return");
    see_shown(combo_box, item);
}

void Tour_Driver::type(const QString& line_edit, const QString& text) {
    click(line_edit);
    see("the focus in " + line_edit, [line_edit] {
        const QWidget* widget = on_screen::find(line_edit);
        return widget != nullptr && widget->hasFocus();
    });
    x11_input::press_key("ctrl+a");
    x11_input::type(text);
    see_shown(line_edit, text);
}

void Tour_Driver::drag_tile(int from_cell, int to_cell) {
    const auto spot_of = [](int cell) {
        return await("the grid", [cell] {
            return on_screen::cell_spot((cell - 1) / columns, (cell - 1) % columns);
        });
    };
    x11_input::drag(spot_of(from_cell), spot_of(to_cell));
}

void Tour_Driver::choose_file(const QString& path, const QString& button) {
    type("fileNameEdit", path);
    // The list of matching names would get the click.
    if (in_gui([] { return QApplication::activePopupWidget() != nullptr; })) {
        x11_input::press_key("Escape");
        see("the file dialog alone", [] { return QApplication::activePopupWidget() == nullptr; });
    }
    click_button(button);
}

void Tour_Driver::close_window() {
    // The outermost button at the right of the title bar, as all window managers have it. Only some
    // have a key for it.
    x11_input::click_at(in_gui([] {
        const QWindow& window = *QApplication::activeWindow()->windowHandle();
        const QRect frame = window.frameGeometry();
        const int half_height = window.frameMargins().top() / 2;
        return frame.topRight() + QPoint(-half_height, half_height);
    }));
}

void Tour_Driver::end_program() {
    const auto is_ending = std::make_shared<std::promise<void>>();
    const auto ending = is_ending->get_future();
    in_gui([is_ending] {
        return QObject::connect(qApp, &QCoreApplication::aboutToQuit,
                                [is_ending] { is_ending->set_value(); });
    });
    close_window();
    if (ending.wait_for(gui_patience) != std::future_status::ready) {
        throw Step_Failed("the program does not end; windows: " + in_gui(on_screen::windows));
    }
}

void Tour_Driver::see(const QString& what, const std::function<bool()>& holds) {
    await(what, [&holds] { return holds() ? std::optional(true) : std::nullopt; });
}

void Tour_Driver::see_shown(const QString& widget, const QString& text) {
    try {
        see(widget, [&] {
            const QWidget* found = on_screen::find(widget);
            return found != nullptr && on_screen::shown(*found) == text;
        });
    } catch (const Step_Failed&) {
        throw Step_Failed(QString("%1 shows \"%2\", not \"%3\"").arg(widget, shown(widget), text));
    }
}

void Tour_Driver::see_enabled(const QString& widget, bool enabled) {
    see(widget + (enabled ? " enabled" : " disabled"), [&] {
        const QWidget* found = on_screen::find(widget);
        return found != nullptr && found->isEnabled() == enabled;
    });
}

void Tour_Driver::answer_box(const QString& text, const QString& button) {
    see("a box \"" + text + '"', [&text] { return on_screen::box_text() == text; });
    take_picture("box");
    click_button(button);
    see("the end of the box", [&text] { return on_screen::box_text() != text; });
}

QString Tour_Driver::shown(const QString& widget) const {
    return in_gui([widget] {
        const QWidget* found = on_screen::find(widget);
        return found == nullptr ? "(no such widget)" : on_screen::shown(*found);
    });
}

void Tour_Driver::see_received(int unit_number, const QString& command) {
    units.await_command(unit_names[unit_number - 1], command);
}

void Tour_Driver::see_layout_read_back(int unit_number) {
    see_received(unit_number, "//BP");
    // On a serial line the tool reads the answer 1000 ms after it has asked. A timer that starts
    // after the tool's own, in the same thread and for as long, ends after it.
    const auto is_read = std::make_shared<bool>(false);
    in_gui([is_read] {
        QTimer::singleShot(std::chrono::milliseconds(1000), Qt::PreciseTimer, qApp,
                           [is_read] { *is_read = true; });
        return true;
    });
    see("the layout asked back", [is_read] { return *is_read; });
}

void Tour_Driver::report_step(const QString& seen) {
    steps_reported += 1;
    outside::print(QString("%1 %2  %3").arg(stage, -stage_column).arg(steps_reported, 2).arg(seen));
}

void Tour_Driver::take_picture(const QString& name) {
    see("a window in front", on_screen::is_painted);
    const QString path = QDir(pictures).filePath(
        QString("%1-%2-%3.png").arg(stage).arg(steps_reported + 1, 2, 10, QChar('0')).arg(name));
    in_gui([] {
        on_screen::repaint();
        return true;
    });
    outside::await_painted();
    if (!in_gui([path] { return on_screen::save_picture(path); })) {
        throw Step_Failed("can't save " + path);
    }
}
