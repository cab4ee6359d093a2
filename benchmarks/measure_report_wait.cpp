// SPDX-License-Identifier: MIT

// From the first byte of a report to every page filled and painted, beyond the fixed wait, compared
// with how late a timer of that length fires by itself.

#include "benchmarks/flush_hook.h"
#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "benchmarks/window_on_line.h"
#include "link/reply_dispatcher.h"
#include "tests/support/find_child.h"

#include <QEventLoop>
#include <QTableWidget>
#include <QTimer>

#include <atomic>
#include <thread>

namespace {

constexpr int wait_rounds = 11;

struct Moments {
    qint64 first_byte = 0;
    qint64 filled = 0;
    qint64 painted = 0;
};

/// Set while a report is awaited; a flush observer is a plain function.
std::function<void()> on_flush;

/// Records the times of one report. The layout is filled last, so its last change of a cell is the
/// moment at which all pages are filled.
Moments take_report(const Window_On_Line& on_line, const Switch_State& state) {
    Moments moments;
    std::atomic<qint64> first_byte = 0;
    on_line.line().drop_input();
    std::jthread unit([&on_line, &state, &first_byte] {
        const QByteArray report = on_line.report(state);
        if (on_line.line().read_up_to("//BP\r")) {
            first_byte = now_ns();
            on_line.line().write(report);
        }
    });

    QEventLoop loop;
    const auto& table = find_child<QTableWidget>(on_line.window(), "tableWidget");
    const QMetaObject::Connection connection = QObject::connect(
        &table, &QTableWidget::cellChanged, &table, [&moments] { moments.filled = now_ns(); });
    on_flush = [&] {
        if (moments.filled != 0) {
            moments.painted = now_ns();
            loop.quit();
        }
    };
    flush_observer = [](void*) { on_flush(); };
    constexpr std::chrono::seconds max_wait{10};
    QTimer::singleShot(max_wait, &loop, &QEventLoop::quit);
    on_line.call("refresh_UI");
    loop.exec();

    flush_observer = nullptr;
    QObject::disconnect(connection);
    unit.join();
    moments.first_byte = first_byte;
    if (moments.painted == 0 || !on_line.shows(state)) {
        throw Measurement_Failed("the pages are not filled");
    }
    return moments;
}

/// How much later than asked for a timer of the same length fires in the same window.
double timer_lateness() {
    QEventLoop loop;
    const qint64 begin = now_ns();
    QTimer::singleShot(Reply_Dispatcher::report_wait_ms, Qt::PreciseTimer, &loop,
                       &QEventLoop::quit);
    loop.exec();
    return milliseconds_between(begin, now_ns()) - Reply_Dispatcher::report_wait_ms;
}

Rows measure_wait_of(const QString& model) {
    const Window_On_Line on_line(model);
    on_line.fill_pages(one_state());
    Samples filled;
    Samples painted;
    Samples lateness;
    for (int round = 0; round < wait_rounds; ++round) {
        const Moments moments = take_report(on_line, round % 2 == 0 ? other_state() : one_state());
        filled.push_back(milliseconds_between(moments.first_byte, moments.filled) -
                         Reply_Dispatcher::report_wait_ms);
        painted.push_back(milliseconds_between(moments.first_byte, moments.painted) -
                          Reply_Dispatcher::report_wait_ms);
        lateness.push_back(timer_lateness());
    }
    const QString against = "the wait's own timer jitter";
    const auto figure = [&lateness](const Samples& samples) {
        return QString("%1 ms (%2 - %3)")
            .arg(readable(median_difference(samples, lateness)), readable(median(samples)),
                 readable(median(lateness)));
    };
    constexpr double limit_ms = 10;
    return {
        row_with_limit(
            "first byte of a report to every page filled, beyond the fixed wait, " + model, against,
            figure(filled), median_difference(filled, lateness), limit_ms, "under 10 ms"),
        row_with_limit(
            "first byte of a report to the page painted, beyond the fixed wait, " + model, against,
            figure(painted), median_difference(painted, lateness), limit_ms, "under 10 ms")};
}

} // namespace

Rows measure_report_wait() { return rows_of_all_models(measure_wait_of); }
