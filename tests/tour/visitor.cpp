#include "tests/tour/visitor.h"

#include "tests/tour/hands.h"
#include "tests/tour/in_gui.h"
#include "tests/tour/outside.h"
#include "tests/tour/sights.h"
#include "tests/tour/stages.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QThread>
#include <QWindow>

#include <optional>

namespace {

constexpr qint64 patience_ms = 30'000;
/// From one look at the windows to the next.
constexpr unsigned long look_again_ms = 15;

/// Looks until something is there.
template <typename Look>
auto await(const QString& what, const Look& look) -> typename decltype(look())::value_type {
    QElapsedTimer waited;
    waited.start();
    for (;;) {
        if (const auto seen = in_gui(look)) {
            return *seen;
        }
        if (waited.elapsed() > patience_ms) {
            throw Step_Failed(what + " is not to be seen; windows: " + in_gui(sights::windows));
        }
        QThread::msleep(look_again_ms);
    }
}

constexpr int columns = 4;

} // namespace

Visitor::Visitor(const QString& stage_name, const QString& picture_folder)
    : stage(stage_name), pictures(picture_folder) {}

void Visitor::click(const QString& widget) {
    click_on(widget, [widget] { return sights::find(widget); });
}

void Visitor::click_button(const QString& caption) {
    click_on('"' + caption + '"', [caption] { return sights::dialog_button(caption); });
}

void Visitor::click_on(const QString& what, const std::function<QWidget*()>& find) {
    const auto spot_now = [find]() -> std::optional<QPoint> {
        QWidget* widget = find();
        return widget == nullptr ? std::nullopt : sights::clickable_spot(*widget);
    };
    // A window that has just come up may still be moved by the window manager.
    for (;;) {
        const QPoint spot = await(what + " to click", spot_now);
        QThread::msleep(look_again_ms);
        if (in_gui(spot_now) == spot) {
            hands::click_at(spot);
            return;
        }
    }
}

void Visitor::choose(const QString& combo_box, const QString& item) {
    const int index = await(combo_box + " with " + item, [=]() -> std::optional<int> {
        const auto* combo = qobject_cast<QComboBox*>(sights::find(combo_box));
        const int found = combo == nullptr ? -1 : combo->findText(item);
        return found < 0 ? std::nullopt : std::optional(found);
    });
    click(combo_box);
    see("the list of " + combo_box, [] { return QApplication::activePopupWidget() != nullptr; });
    hands::press_key("Home");
    for (int down = 0; down < index; ++down) {
        hands::press_key("Down");
    }
    hands::press_key("Return");
    see_shown(combo_box, item);
}

void Visitor::type(const QString& line_edit, const QString& text) {
    click(line_edit);
    see("the focus in " + line_edit, [line_edit] {
        const QWidget* widget = sights::find(line_edit);
        return widget != nullptr && widget->hasFocus();
    });
    hands::press_key("ctrl+a");
    hands::type(text);
    see_shown(line_edit, text);
}

void Visitor::drag_tile(int from_cell, int to_cell) {
    const auto spot_of = [](int cell) {
        return await("the grid", [cell] {
            return sights::cell_spot((cell - 1) / columns, (cell - 1) % columns);
        });
    };
    hands::drag(spot_of(from_cell), spot_of(to_cell));
}

void Visitor::choose_file(const QString& path, const QString& button) {
    type("fileNameEdit", path);
    // The list of matching names would take the click.
    if (in_gui([] { return QApplication::activePopupWidget() != nullptr; })) {
        hands::press_key("Escape");
        see("the file dialog alone", [] { return QApplication::activePopupWidget() == nullptr; });
    }
    click_button(button);
}

void Visitor::close_window() {
    // The outermost button at the right of the title bar, as all window managers have it. A key for
    // it only some have.
    hands::click_at(in_gui([] {
        const QWindow& window = *QApplication::activeWindow()->windowHandle();
        const QRect frame = window.frameGeometry();
        const int half_height = window.frameMargins().top() / 2;
        return frame.topRight() + QPoint(-half_height, half_height);
    }));
}

void Visitor::see(const QString& what, const std::function<bool()>& holds) {
    await(what, [&holds] { return holds() ? std::optional(true) : std::nullopt; });
}

void Visitor::see_shown(const QString& widget, const QString& text) {
    try {
        see(widget, [&] {
            const QWidget* found = sights::find(widget);
            return found != nullptr && sights::shown(*found) == text;
        });
    } catch (const Step_Failed&) {
        throw Step_Failed(QString("%1 shows \"%2\", not \"%3\"").arg(widget, shown(widget), text));
    }
}

void Visitor::see_enabled(const QString& widget, bool enabled) {
    see(widget + (enabled ? " enabled" : " disabled"), [&] {
        const QWidget* found = sights::find(widget);
        return found != nullptr && found->isEnabled() == enabled;
    });
}

void Visitor::answer_box(const QString& text, const QString& button) {
    see("a box \"" + text + '"', [&text] { return sights::box_text() == text; });
    take_picture("box");
    click_button(button);
    see("the end of the box", [&text] { return sights::box_text() != text; });
}

QString Visitor::shown(const QString& widget) const {
    return in_gui([widget] {
        const QWidget* found = sights::find(widget);
        return found == nullptr ? "(no such widget)" : sights::shown(*found);
    });
}

void Visitor::see_received(int unit_number, const QString& command) {
    units.await_command(unit_names[unit_number - 1], command);
}

void Visitor::tell(const QString& seen) {
    steps_told += 1;
    outside::print(QString("%1 %2  %3").arg(stage, -stage_column).arg(steps_told, 2).arg(seen));
}

void Visitor::take_picture(const QString& name) {
    see("a window in front", sights::is_painted);
    const QString path = QDir(pictures).filePath(
        QString("%1-%2-%3.png").arg(stage).arg(steps_told + 1, 2, 10, QChar('0')).arg(name));
    if (!in_gui([path] { return sights::save_picture(path); })) {
        throw Step_Failed("can't save " + path);
    }
}
