// SPDX-License-Identifier: MIT

// From the press on a tile, with which every drag begins, to its new look on screen, compared with
// the same press on the bare form's table.

#include "benchmarks/flush_hook.h"
#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "benchmarks/window_on_line.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"

#include <QMouseEvent>
#include <QTableWidget>
#include <QTableWidgetItem>
#include <QWindow>

namespace {

constexpr int press_rounds = 40;
constexpr int tile_count = 4;

qint64 painted_ns = 0;

void send_mouse_event(QEvent::Type type, QWidget& viewport, const QPoint& place) {
    QMouseEvent event(type, place, viewport.mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&viewport, &event);
}

/// Presses a tile of the first row, which is in its default place.
double press_milliseconds(QTableWidget& table, int tile) {
    const QPoint place = table.visualItemRect(table.item(0, tile)).center();
    QCoreApplication::processEvents();
    painted_ns = 0;
    flush_observer = [](void*) { painted_ns = now_ns(); };
    const qint64 begin = now_ns();
    send_mouse_event(QEvent::MouseButtonPress, *table.viewport(), place);
    const bool painted = wait_until([] { return painted_ns != 0; });
    flush_observer = nullptr;
    send_mouse_event(QEvent::MouseButtonRelease, *table.viewport(), place);
    if (!painted) {
        throw Measurement_Failed("a press on a tile changes nothing on screen");
    }
    return milliseconds_between(begin, painted_ns);
}

void put_tiles(QTableWidget& table) {
    for (int tile = 0; tile < tile_count; ++tile) {
        table.setItem(0, tile, new QTableWidgetItem(QString("Channel %1").arg(tile + 1)));
    }
}

template <class Form>
Rows measure_press_on(const QString& model) {
    const Window_On_Line on_line(model);
    on_line.fill_pages(one_state());
    on_line.call("on_TopologyAndDisplayBtn_clicked");

    QMainWindow window;
    Form form;
    form.setupUi(&window);
    window.setFixedSize(on_line.window().size());
    form.stackedWidget->setCurrentIndex(2);
    put_tiles(*form.tableWidget);
    window.show();
    if (!wait_until([&window] { return window.windowHandle()->isExposed(); })) {
        throw Measurement_Failed("the bare form does not come on screen");
    }

    auto& table = find_child<QTableWidget>(on_line.window(), "tableWidget");
    Samples tool;
    Samples bare;
    for (int round = 0; round < press_rounds; ++round) {
        tool.push_back(press_milliseconds(table, round % tile_count));
        bare.push_back(press_milliseconds(*form.tableWidget, round % tile_count));
    }
    constexpr double one_frame_ms = 16;
    return {row_with_limit(
        "press on a tile to its new appearance, " + model, "one frame; bare form's table",
        QString("%1 ms / %2 ms").arg(readable(median(tool)), readable(median(bare))), median(tool),
        one_frame_ms, "16 ms")};
}

} // namespace

Rows measure_press() {
    return rows_of_all_models([](const QString& model, auto form) {
        return measure_press_on<typename decltype(form)::type>(model);
    });
}
