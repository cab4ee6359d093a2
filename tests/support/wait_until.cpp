// SPDX-License-Identifier: MIT

#include "tests/support/wait_until.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>

bool wait_until(const std::function<bool()>& condition, int milliseconds) {
    constexpr std::chrono::milliseconds max_round{10};
    const QDeadlineTimer deadline(milliseconds);
    QTimer waker;
    waker.start(max_round);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

int count_event_rounds(int milliseconds) {
    int rounds = 0;
    (void)wait_until(
        [&] {
            ++rounds;
            return false;
        },
        milliseconds);
    return rounds;
}
