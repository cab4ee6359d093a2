// SPDX-License-Identifier: MIT

#include "benchmarks/programs/tasks.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

#include <cstdio>
#include <sys/resource.h>

namespace {

// Timers of the start, late repaints and cursors have finished by then.
constexpr std::chrono::seconds settling_time{2};
constexpr std::chrono::seconds idle_time{5};

void print_number(const char* name, double number) { std::printf("%s %.6f\n", name, number); }

/// The number after a key at the beginning of a line of a file in /proc.
double number_in(const QString& path, const QByteArray& key) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key)) {
            return line.mid(key.size()).simplified().split(' ').constFirst().toDouble();
        }
    }
    return 0;
}

/// How often a thread of this process has waited and was woken.
double wake_ups() {
    double count = 0;
    const QDir threads("/proc/self/task");
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        count += number_in(threads.filePath(thread + "/status"), "voluntary_ctxt_switches:");
    }
    return count;
}

double processor_milliseconds() {
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

void print_memory() {
    print_number("pss_kb", number_in("/proc/self/smaps_rollup", "Pss:"));
    QCoreApplication::quit();
}

void watch_idle_time() {
    const double woken = wake_ups();
    const double used = processor_milliseconds();
    QTimer::singleShot(idle_time, qApp, [woken, used] {
        print_number("processor_ms", processor_milliseconds() - used);
        print_number("wake_ups", wake_ups() - woken);
        QCoreApplication::quit();
    });
}

} // namespace

void carry_out_task(const QString& task, double milliseconds_to_window) {
    if (task == "memory") {
        QTimer::singleShot(settling_time, qApp, print_memory);
    } else if (task == "idle") {
        QTimer::singleShot(settling_time, qApp, watch_idle_time);
    } else {
        print_number("window_ms", milliseconds_to_window);
        QCoreApplication::quit();
    }
}
