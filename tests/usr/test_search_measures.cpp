// SPDX-License-Identifier: MIT

#include "tests/support/adapter_process.h"
#include "tests/support/private_network.h"
#include "tests/support/stated_wait.h"
#include "tests/support/virtual_time.h"
#include "usr/usr_searcher.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSet>
#include <QTest>

#include <ctime>

using namespace std::chrono_literals;

/// How long a search takes beyond its fixed 1.5 seconds, and how many of the adapters that answer
/// at once it lists. Prints the figures.
class Test_Search_Measures : public QObject {
    Q_OBJECT

private slots:
    void a_search_takes_1500_ms();
    void listening_takes_next_to_no_processor_time_data();
    void listening_takes_next_to_no_processor_time();
    void all_adapters_that_answer_at_once_are_listed_in_time_data();
    void all_adapters_that_answer_at_once_are_listed_in_time();
};

namespace {

constexpr qint64 fixed_ms = 1500;
constexpr qint64 listening_ms = 1000;
constexpr qint64 max_beyond_ms = 1000;

/// Processor time of this thread, so that the load of the machine does not count.
qint64 thread_ms() {
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * 1000 + now.tv_nsec / 1'000'000;
}

} // namespace

void Test_Search_Measures::a_search_takes_1500_ms() {
    const Virtual_Time time;
    USR_searcher searcher;
    const auto start = virtual_time::now();
    QCOMPARE(searcher.search_USR_in_network(), -1);
    QCOMPARE(wrong_wait(virtual_time::now() - start, 1500ms), QByteArray());
}

void Test_Search_Measures::listening_takes_next_to_no_processor_time_data() {
    QTest::addColumn<int>("count");
    QTest::newRow("none answers") << 0;
    QTest::newRow("one answers") << 1;
}

void Test_Search_Measures::listening_takes_next_to_no_processor_time() {
    QFETCH(const int, count);
    std::unique_ptr<Adapter_Process> adapter;
    if (count > 0) {
        adapter = std::make_unique<Adapter_Process>(QStringList{"--switch", "none"});
    }
    USR_searcher searcher;
    QElapsedTimer timer;
    timer.start();
    const qint64 thread_start = thread_ms();
    QCOMPARE(searcher.search_USR_in_network(), count > 0 ? 1 : -1);
    const qint64 used_ms = thread_ms() - thread_start;
    qInfo("%lld ms of processor time in a search of %lld ms", used_ms, timer.elapsed());
    QCOMPARE_GE(timer.elapsed(), fixed_ms);
    QCOMPARE_LT(used_ms, listening_ms * 5 / 100);
}

void Test_Search_Measures::all_adapters_that_answer_at_once_are_listed_in_time_data() {
    QTest::addColumn<int>("count");
    for (const int count : {1, 10, 100, 250}) {
        QTest::addRow("%d adapters", count) << count;
    }
}

void Test_Search_Measures::all_adapters_that_answer_at_once_are_listed_in_time() {
    QFETCH(const int, count);
    const Adapter_Process adapters({"--switch", "none", "--count", QString::number(count)});
    USR_searcher searcher;
    QElapsedTimer timer;
    timer.start();
    const qint64 thread_start = thread_ms();
    searcher.search_USR_in_network();
    const qint64 beyond_ms = timer.elapsed() - fixed_ms;

    QSet<QString> addresses;
    for (const auto& address : searcher.get_USR_addresses()) {
        addresses << address->toString();
    }
    qInfo("%lld of %d adapters listed, %lld ms beyond the fixed 1500 ms", addresses.size(), count,
          beyond_ms);
    QCOMPARE(addresses.size(), count);
    QCOMPARE(searcher.get_USR_replies().size(), count);
    QCOMPARE_LE(thread_ms() - thread_start, listening_ms + max_beyond_ms);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QCoreApplication application(count, values);
        Test_Search_Measures test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_search_measures.moc"
