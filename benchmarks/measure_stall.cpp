// SPDX-License-Identifier: MIT

// The longest stall of the event loop while the switch's line delivers without end, at the line's
// own speed and at a hundred times that: the largest gap between the ticks of a 1 ms timer, less
// the same without load.

#include "benchmarks/measurements.h"
#include "benchmarks/statistics.h"
#include "benchmarks/window_on_line.h"
#include "tests/support/wait_until.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <thread>

namespace {

/// 115200 baud with a start and a stop bit for each byte.
constexpr double line_bytes_per_second = 11'520;
constexpr qint64 nanoseconds_per_millisecond = 1'000'000;
constexpr std::chrono::seconds stage_time{2};

/// Sends a unit's reports over and over, as many bytes each millisecond as the line's speed gives,
/// until stopped.
class Feeder {
public:
    Feeder(const Pty_Line& line, const QByteArray& text, double bytes_per_second)
        : thread([this, &line, text, bytes_per_second](const std::stop_token& stop) {
              feed(line, text, bytes_per_second, stop);
          }) {}

    /// Ends the delivery. Processes events until its last piece has been read, because the line may
    /// be full.
    /// @return the kilobytes per second that the line transferred.
    double stop() {
        thread.request_stop();
        if (!wait_until([this] { return kilobytes_per_second > 0; })) {
            throw Measurement_Failed("the line does not take what is sent");
        }
        return kilobytes_per_second;
    }

private:
    void feed(const Pty_Line& line, const QByteArray& text, double bytes_per_second,
              const std::stop_token& stop) {
        const qint64 begin = now_ns();
        qint64 tick = begin;
        qsizetype sent = 0;
        while (!stop.stop_requested()) {
            tick += nanoseconds_per_millisecond;
            const timespec until = {tick / 1'000'000'000, tick % 1'000'000'000};
            clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
            const double seconds = static_cast<double>(tick - begin) / 1e9;
            const auto due = static_cast<qsizetype>(bytes_per_second * seconds);
            while (sent < due) {
                const qsizetype from = sent % text.size();
                const QByteArray piece = text.mid(from, std::min(due - sent, text.size() - from));
                line.write(piece);
                sent += piece.size();
            }
        }
        kilobytes_per_second = static_cast<double>(sent) / milliseconds_between(begin, now_ns());
    }

    /// Set when the thread has finished.
    std::atomic<double> kilobytes_per_second = 0;
    std::jthread thread;
};

/// Runs the event loop for a stage.
/// @return the largest gap between two ticks in it, in milliseconds.
double largest_gap() {
    QEventLoop loop;
    QTimer ticks;
    ticks.setTimerType(Qt::PreciseTimer);
    qint64 last = now_ns();
    double gap = 0;
    const auto look = [&last, &gap] {
        const qint64 now = now_ns();
        gap = std::max(gap, milliseconds_between(last, now));
        last = now;
    };
    QObject::connect(&ticks, &QTimer::timeout, &loop, look);
    QTimer::singleShot(stage_time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    ticks.start(1);
    loop.exec();
    look();
    return gap;
}

Row measure_at(const QString& model, double times_line_speed, double limit_ms,
               const QString& what) {
    constexpr int rounds = 5;
    const Window_On_Line on_line(model);
    on_line.fill_pages(one_state());
    Samples idle;
    Samples loaded;
    Samples rates;
    for (int round = 0; round < rounds; ++round) {
        idle.push_back(largest_gap());
        Feeder feeder(on_line.line(), on_line.report(one_state()),
                      times_line_speed * line_bytes_per_second);
        loaded.push_back(largest_gap());
        rates.push_back(feeder.stop());
    }
    const double stall = median_difference(loaded, idle);
    const QString figure =
        QString("%1 ms (%2 - %3; largest %4; %5 kB/s)")
            .arg(readable(stall), readable(median(loaded)), readable(median(idle)),
                 readable(largest(loaded)), readable(median(rates)));
    return row_with_limit(what + ", " + model, "the same without load", figure, stall, limit_ms,
                          QString("%1 ms").arg(limit_ms));
}

Rows measure_stalls_of(const QString& model) {
    constexpr double one_frame_ms = 16;
    constexpr double three_frames_ms = 50;
    return {
        measure_at(model, 1, one_frame_ms, "longest stall while the line delivers at full speed"),
        measure_at(model, 100, three_frames_ms, "longest stall at 100 times the line's speed")};
}

} // namespace

Rows measure_stall() { return rows_of_all_models(measure_stalls_of); }
