// SPDX-License-Identifier: MIT

#include "sim/simulated_switch.h"
#include "tests/support/stated_wait.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

using namespace std::chrono_literals;

/// The clock with which the tests measure waits.
class Test_Virtual_Time : public QObject {
    Q_OBJECT

private slots:
    void without_it_the_clock_is_the_machines();
    void waits_keep_their_length_and_take_no_real_time();
    void timers_fire_in_the_order_of_their_ends();
    void work_takes_no_time();
    void a_sleep_takes_its_time();
    void a_loop_that_only_looks_comes_to_its_end();
    void a_leap_makes_timers_due();
    void what_a_terminal_carries_arrives_before_the_next_timer();
    void real_time_goes_before_virtual_time();
    void the_clock_never_goes_back();
};

namespace {

std::chrono::nanoseconds machine_clock() {
    timespec time{};
    syscall(SYS_clock_gettime, CLOCK_MONOTONIC, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void work_for_a_while() {
    const auto start = machine_clock();
    while (machine_clock() - start < 20ms) {
    }
}

} // namespace

void Test_Virtual_Time::without_it_the_clock_is_the_machines() {
    const auto start = virtual_time::now();
    work_for_a_while();
    QVERIFY(virtual_time::now() - start >= 20ms);
}

void Test_Virtual_Time::waits_keep_their_length_and_take_no_real_time() {
    const Virtual_Time time;
    const auto real_start = machine_clock();
    for (const std::chrono::milliseconds length : {1ms, 50ms, 1350ms, 7000ms, 3'600'000ms}) {
        bool fired = false;
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(length, Qt::PreciseTimer, this, [&] { fired = true; });
        const auto wait = virtual_time::time_until([&] { return fired; }, 10'000'000ms);
        QCOMPARE(wrong_wait(wait, length), QByteArray());
        QCOMPARE(wrong_wait(std::chrono::milliseconds(clock.elapsed()), length), QByteArray());
    }
    QVERIFY(machine_clock() - real_start < 3'600'000ms);
}

void Test_Virtual_Time::timers_fire_in_the_order_of_their_ends() {
    const Virtual_Time time;
    QList<int> fired;
    for (const int length : {300, 100, 200, 400}) {
        QTimer::singleShot(length, Qt::PreciseTimer, this, [&fired, length] { fired << length; });
    }
    virtual_time::pass(300ms);
    QCOMPARE(fired, QList<int>({100, 200, 300}));
    virtual_time::pass(100ms);
    QCOMPARE(fired, QList<int>({100, 200, 300, 400}));
}

void Test_Virtual_Time::work_takes_no_time() {
    const Virtual_Time time;
    const auto start = virtual_time::now();
    work_for_a_while();
    QVERIFY(virtual_time::now() == start);
}

void Test_Virtual_Time::a_sleep_takes_its_time() {
    const Virtual_Time time;
    const auto start = virtual_time::now();
    QThread::msleep(250);
    QVERIFY(virtual_time::now() - start == 250ms);
    QTest::qWait(500);
    QCOMPARE(wrong_wait(virtual_time::now() - start, 750ms), QByteArray());
}

void Test_Virtual_Time::a_loop_that_only_looks_comes_to_its_end() {
    const Virtual_Time time;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 100) {
        QCoreApplication::processEvents();
    }
    const auto wall_start = std::chrono::system_clock::now();
    while (std::chrono::system_clock::now() - wall_start < 100ms) {
    }
    QVERIFY(clock.elapsed() >= 200);
}

void Test_Virtual_Time::a_leap_makes_timers_due() {
    const Virtual_Time time;
    bool fired = false;
    QTimer::singleShot(1000, Qt::PreciseTimer, this, [&] { fired = true; });
    virtual_time::leap(999ms);
    QCoreApplication::processEvents();
    QVERIFY(!fired);
    virtual_time::leap(1ms);
    QCoreApplication::processEvents();
    QVERIFY(fired);
}

void Test_Virtual_Time::what_a_terminal_carries_arrives_before_the_next_timer() {
    const Virtual_Time time;
    Simulated_Switch device;
    QFile line(device.device_name());
    QVERIFY(line.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    for (int round = 0; round < 1000; ++round) {
        device.clear_record();
        QCOMPARE(line.write("//c1\r"), 5);
        virtual_time::pass(1ms);
        QCOMPARE(device.received_commands(), QByteArrayList{"//c1"});
    }
}

void Test_Virtual_Time::real_time_goes_before_virtual_time() {
    const Virtual_Time time;
    const Real_Time real;
    const auto start = machine_clock();
    QVERIFY(!wait_until([] { return false; }, 30));
    QVERIFY(machine_clock() - start >= 30ms);
}

void Test_Virtual_Time::the_clock_never_goes_back() {
    auto last = virtual_time::now();
    const auto goes_on = [&last] {
        const auto before = last;
        last = virtual_time::now();
        return last >= before;
    };
    {
        const Virtual_Time time;
        QVERIFY(goes_on());
        virtual_time::pass(10'000ms);
        const Real_Time real;
        QVERIFY(goes_on());
    }
    QVERIFY(goes_on());
    const Virtual_Time again;
    QVERIFY(goes_on());
}

QTEST_GUILESS_MAIN(Test_Virtual_Time)

#include "test_virtual_time.moc"
