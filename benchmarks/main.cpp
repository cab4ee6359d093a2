// SPDX-License-Identifier: MIT

// halvern-bench [NAME...]: runs all or the named benchmarks one after the other, each in a separate
// process, and prints one table.
//
// Exit status: 0 if every target was reached, 1 if one was missed, 2 if a benchmark failed.

#include "benchmarks/measurements.h"

#include <QApplication>
#include <QProcess>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <exception>
#include <string_view>
#include <vector>

namespace {

constexpr int exit_missed = 1;
constexpr int exit_failed = 2;
/// Before a benchmark's name: run it in this process.
constexpr std::string_view single = "--single";

/// Where the measured widgets are. If this process had widgets as well, both would share pages of
/// the libraries, and the proportional size of the measured one would be less than a user's.
enum class Widgets { in_this_process, in_others };

struct Measurement {
    const char* name;
    Rows (*take)();
    Widgets widgets;
};

constexpr Measurement measurements[] = {
    {"start", measure_start, Widgets::in_others},
    {"window", measure_window, Widgets::in_others},
    {"memory", measure_memory, Widgets::in_others},
    {"terminal", measure_terminal, Widgets::in_this_process},
    {"report-wait", measure_report_wait, Widgets::in_this_process},
    {"report-apply", measure_report_apply, Widgets::in_this_process},
    {"stall", measure_stall, Widgets::in_this_process},
    {"press", measure_press, Widgets::in_this_process},
    {"settings", measure_settings, Widgets::in_this_process},
    {"adapters", measure_adapters, Widgets::in_others},
    {"idle", measure_idle, Widgets::in_others},
};

int take(const Measurement& measurement) {
    try {
        QTextStream(stdout) << to_lines(measurement.take());
        return 0;
    } catch (const std::exception& failure) {
        QTextStream(stderr) << measurement.name << ": " << failure.what() << Qt::endl;
        return exit_failed;
    }
}

int take_here(int argc, char* argv[]) {
    for (const Measurement& measurement : measurements) {
        if (std::string_view(argv[2]) != measurement.name) {
            continue;
        }
        if (measurement.widgets == Widgets::in_others) {
            const QCoreApplication application(argc, argv);
            return take(measurement);
        }
        const QApplication application(argc, argv);
        return take(measurement);
    }
    QTextStream(stderr) << argv[2] << ": unknown benchmark" << Qt::endl;
    return exit_failed;
}

/// The rows of a benchmark that runs in a separate process; none if it failed.
Rows take_apart(const QString& name) {
    QTextStream(stderr) << "measuring: " << name << Qt::endl;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromUtf8(single.data()), name});
    constexpr int no_limit = -1;
    process.waitForFinished(no_limit);
    return rows_in(process.readAllStandardOutput());
}

int take_all(const QStringList& names) {
    Rows rows;
    bool failed = false;
    for (const QString& name : names) {
        const Rows taken = take_apart(name);
        failed = failed || taken.isEmpty();
        rows += taken;
    }
    QTextStream(stdout) << table_of(rows);
    if (failed) {
        return exit_failed;
    }
    const bool missed = std::any_of(rows.cbegin(), rows.cend(), [](const Row& row) {
        return row.verdict == Row::Verdict::missed;
    });
    return missed ? exit_missed : 0;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc == 3 && argv[1] == single) {
        return take_here(argc, argv);
    }
    const QCoreApplication application(argc, argv);
    QStringList names = QCoreApplication::arguments().mid(1);
    if (names.isEmpty()) {
        for (const Measurement& measurement : measurements) {
            names.append(measurement.name);
        }
    }
    return take_all(names);
}
