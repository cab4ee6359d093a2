// SPDX-License-Identifier: MIT

#include "tests/robustness/soak.h"

#include "tests/robustness/resource_counts.h"
#include "tests/support/virtual_time.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPixmapCache>
#include <QTest>
#include <QTextDocument>
#include <QThreadPool>

#include <utility>

namespace {

// The memory that a line of the terminal may use while it is shown: its characters, and Qt's block
// and layout of it. Qt 6.4 takes some 730 bytes, Qt 6.11 up to 2,720.
constexpr qint64 max_bytes_per_line = 4096;

// The allocators' rounding; less than one leaked object in each of 200 steps would use.
constexpr qint64 allowance = 64 * 1024;

/// The counters must work, or no growth could be detected.
void demand_counted(const Resource_Counts& resource_counts) {
    QCOMPARE_GT(resource_counts.objects, 0);
    QCOMPARE_GT(resource_counts.heap, 0);
}

/// Fewer are allowed: what Qt has created for its own use may go at any time.
void demand_no_growth(const Resource_Counts& before, const Resource_Counts& after) {
    QCOMPARE_LE(after.descriptors, before.descriptors);
    QCOMPARE_LE(after.objects, before.objects);
    QCOMPARE_LE(after.widgets, before.widgets);
    QCOMPARE_LE(after.children, before.children);
}

void demand_at_most(qint64 bytes, qint64 limit) { QCOMPARE_LE(bytes, limit); }

qint64 per_step(qint64 bytes, int count) { return bytes / count; }

} // namespace

int length_of_run(int all_steps) {
#ifdef HALVERN_ADDRESS_SANITIZER
    constexpr int sanitizer_share = 10;
    return all_steps / sanitizer_share;
#else
    constexpr int short_share = 5;
    return qEnvironmentVariableIsSet("HALVERN_LONG_RUNS") ? all_steps : all_steps / short_share;
#endif
}

Soak::Soak(const Window_Fixture& opened_window, std::function<void()> drop_record,
           std::function<QByteArray()> explain)
    : window(opened_window), forget(std::move(drop_record)), why(std::move(explain)) {}

qint64 Soak::shown() const {
    // The document counts the end of its last line.
    return shown_before + window.terminal().document()->characterCount() - 1;
}

void Soak::clear_terminal() {
    shown_before = shown();
    window.terminal().clear();
}

void Soak::come_to_rest() {
    constexpr std::chrono::milliseconds longer_than_any_wait{10'000};
    virtual_time::leap(longer_than_any_wait);
    for (int round = 0; round < 10; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // A file dialog works in threads of Qt's pool. How many there are depends on how busy the
    // machine is, and each has objects and a descriptor. This ends them all.
    QThreadPool::globalInstance()->waitForDone();
    // Qt caches icons that it has drawn, up to 10 MB.
    QPixmapCache::clear();
    forget();
}

void Soak::take_steps(int count, const Step& step) {
    for (int number = 0; number < count; ++number) {
        if (!step(number)) {
            QFAIL(qPrintable(QString("step %1: %2").arg(number).arg(QString::fromUtf8(why()))));
        }
        forget();
    }
}

qint64 Soak::repeat(const char* what, int count, const Step& step, qint64 kept_by_qt) {
    constexpr int warm_up_share = 10;
    take_steps(count / warm_up_share, step);
    if (QTest::currentTestFailed()) {
        return 0;
    }
    come_to_rest();
    clear_terminal();
    come_to_rest();
    const Resource_Counts before = count_resources();

    const qint64 first_shown = shown();
    take_steps(count, step);
    if (QTest::currentTestFailed()) {
        return 0;
    }
    come_to_rest();
    const int lines = window.terminal().document()->blockCount();
    const Resource_Counts with_text = count_resources();
    const qint64 characters = shown() - first_shown;
    clear_terminal();
    come_to_rest();
    const Resource_Counts after = count_resources();

    const qint64 grown = after.heap - before.heap;
    const qint64 grown_with_text = with_text.heap - before.heap;
    qInfo("%s: %d times; descriptors %d -> %d, objects %d -> %d, widgets %d -> %d, children %d -> "
          "%d; heap %+lld bytes (%+lld a time), with %lld characters in %d lines shown %+lld bytes "
          "(%lld a line); resident %lld -> %lld KB",
          what, count, before.descriptors, after.descriptors, before.objects, after.objects,
          before.widgets, after.widgets, before.children, after.children, grown,
          per_step(grown, count), characters, lines, grown_with_text,
          per_step(grown_with_text, lines), before.resident / 1024, after.resident / 1024);
    demand_counted(before);
    demand_no_growth(before, after);
    demand_at_most(grown_with_text, lines * max_bytes_per_line + kept_by_qt);
    demand_at_most(grown, kept_by_qt + allowance);
    return grown;
}
