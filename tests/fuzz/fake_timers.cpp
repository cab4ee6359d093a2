// SPDX-License-Identifier: MIT

#include "tests/fuzz/fake_timers.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

struct Waiting {
    qint64 due;
    QPointer<QObject> receiver;
    QByteArray slot;
};

struct Clock {
    qint64 now = 0;
    std::vector<Waiting> waiting;
};

Clock& the_clock() {
    static Clock clock;
    return clock;
}

void keep(std::chrono::milliseconds wait, const QObject* receiver, const char* member) {
    // "1name()": the digit is that of the SLOT macro.
    QByteArray slot(member + 1);
    slot.truncate(slot.indexOf('('));
    the_clock().waiting.push_back(
        {the_clock().now + wait.count(), const_cast<QObject*>(receiver), std::move(slot)});
}

} // namespace

// Replaces Qt's own function, whose timers would fire in real time. From Qt 6.8 on the overload for
// milliseconds is inline and calls the one for nanoseconds.
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
void QTimer::singleShot(std::chrono::nanoseconds wait, Qt::TimerType /*type*/,
                        const QObject* receiver, const char* member) {
    keep(std::chrono::duration_cast<std::chrono::milliseconds>(wait), receiver, member);
}
#else
void QTimer::singleShot(int msec, Qt::TimerType /*type*/, const QObject* receiver,
                        const char* member) {
    keep(std::chrono::milliseconds(msec), receiver, member);
}
#endif

bool fake_timers::are_in_place() {
    const QObject receiver;
    const auto before = the_clock().waiting.size();
    QTimer::singleShot(1, Qt::PreciseTimer, &receiver, SLOT(deleteLater()));
    if (the_clock().waiting.size() != before + 1) {
        return false;
    }
    the_clock().waiting.pop_back();
    return true;
}

void fake_timers::forget() { the_clock().waiting.clear(); }

void fake_timers::pass(int milliseconds, const Slot_Call& call) {
    Clock& clock = the_clock();
    const qint64 end = clock.now + milliseconds;
    while (true) {
        // A slot may start further timers, and let time pass itself.
        const auto next = std::ranges::min_element(clock.waiting, {}, &Waiting::due);
        if (next == clock.waiting.end() || next->due > end) {
            break;
        }
        const Waiting due = *next;
        clock.waiting.erase(next);
        clock.now = std::max(clock.now, due.due);
        if (due.receiver) {
            call(*due.receiver, due.slot);
        }
    }
    clock.now = std::max(clock.now, end);
}
