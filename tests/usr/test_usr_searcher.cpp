// SPDX-License-Identifier: MIT

#include "tests/support/debug_lines.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/modal_robot.h"
#include "tests/support/open_log.h"
#include "tests/support/private_network.h"
#include "tests/support/raw_sender.h"
#include "tests/usr/port_taker.h"
#include "usr/search_stopwatch.h"
#include "usr/usr_searcher.h"
#include "usr/waiting.h"

#include <QApplication>
#include <QTest>

#include <memory>
#include <stdexcept>

/// The adapter search, with the test's own clock.
class Test_USR_Searcher : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_search_sends_one_frame_from_port_4242();
    void without_an_answer_the_search_fails_and_the_lists_are_empty();
    void the_search_listens_for_a_whole_second_even_after_an_answer();
    void a_reply_is_kept_as_hex_beside_its_sender();
    void two_adapters_are_listed_in_the_order_of_arrival();
    void an_adapter_that_answers_twice_has_two_entries();
    void a_reply_during_the_listening_is_taken();
    void each_search_starts_with_empty_lists();
    void a_copied_address_list_outlives_the_next_search();
    void each_reply_of_wrong_length_starts_the_search_over_data();
    void each_reply_of_wrong_length_starts_the_search_over();
    void a_spoiled_search_counts_as_answered_whatever_its_repetition_finds();
    void a_spoiled_search_whose_repetition_cannot_bind_leaves_no_replies();
    void a_taken_port_fails_at_once_and_leaves_the_lists();
    void the_port_is_free_between_searches();
    void within_one_pass_the_buffer_keeps_the_first_size_data();
    void within_one_pass_the_buffer_keeps_the_first_size();
    void a_failure_is_logged_and_shown_and_frees_the_port();
    void a_failure_of_the_repetition_is_shown_once();
    void the_stopwatch_measures_from_start_to_stop_or_now();
};

namespace {

using Entry = QPair<QString, QString>;

/// Sender and reply of each entry; the lists must have the same length.
QList<Entry> entries_of(const USR_searcher& searcher) {
    const QStringList replies = searcher.get_USR_replies();
    const USR_Address_List addresses = searcher.get_USR_addresses();
    QList<Entry> entries;
    for (qsizetype i = 0; i < std::max(replies.size(), addresses.size()); ++i) {
        entries << Entry(addresses.value(i) ? addresses.value(i)->toString() : QString(),
                         replies.value(i));
    }
    return entries;
}

QString reply_of(const Simulated_Adapter& adapter) {
    return QString::fromLatin1(adapter.unit().search_reply().toHex());
}

/// A datagram of the given size that counts its bytes up from a first one.
QByteArray counted_bytes(int size, int first = 0) {
    QByteArray bytes;
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(first + i);
    }
    return bytes;
}

} // namespace

void Test_USR_Searcher::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_USR_Searcher::a_search_sends_one_frame_from_port_4242() {
    Fast_Network network;
    QList<quint16> sender_ports;
    connect(&network, &Adapter_Network::frame_received, this,
            [&](const QByteArray&, const QHostAddress&, quint16 port) { sender_ports << port; });
    USR_searcher searcher;
    searcher.search_USR_in_network();
    QCOMPARE(network.frames(), QByteArrayList{"ff010102"});
    QCOMPARE(sender_ports, QList<quint16>{4242});
}

void Test_USR_Searcher::without_an_answer_the_search_fails_and_the_lists_are_empty() {
    const Fast_Network network;
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), -1);
    QCOMPARE(entries_of(searcher), QList<Entry>());
}

void Test_USR_Searcher::the_search_listens_for_a_whole_second_even_after_an_answer() {
    Fast_Network network;
    network.add_adapter();
    USR_searcher searcher;
    const qint64 before = read_wall_clock();
    QCOMPARE(searcher.search_USR_in_network(), 1);
    const qint64 listened = read_wall_clock() - before;
    QCOMPARE_GE(listened, 1'000'000'000);
    // The clock advances by 10 ms at each reading.
    QCOMPARE_LE(listened, 1'050'000'000);
    QCOMPARE(fake_waiting::block_count(), 1);
    QCOMPARE(fake_waiting::blocked_milliseconds(), 500u);
}

void Test_USR_Searcher::a_reply_is_kept_as_hex_beside_its_sender() {
    Fast_Network network;
    const Simulated_Adapter& adapter = network.add_adapter();
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(entries_of(searcher), QList<Entry>({{"127.0.0.2", reply_of(adapter)}}));
    QCOMPARE(reply_of(adapter).size(), 72);
    QCOMPARE(reply_of(adapter), reply_of(adapter).toLower());
}

void Test_USR_Searcher::two_adapters_are_listed_in_the_order_of_arrival() {
    Fast_Network network;
    const Simulated_Adapter& first = network.add(Adapter_Network::numbered({}, 7));
    const Simulated_Adapter& second = network.add(Adapter_Network::numbered({}, 3));
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(entries_of(searcher),
             QList<Entry>({{"127.0.0.9", reply_of(first)}, {"127.0.0.5", reply_of(second)}}));
}

void Test_USR_Searcher::an_adapter_that_answers_twice_has_two_entries() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    adapter.unit().set_faults({.copies = 2});
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    const Entry entry("127.0.0.2", reply_of(adapter));
    QCOMPARE(entries_of(searcher), QList<Entry>({entry, entry}));
}

void Test_USR_Searcher::a_reply_during_the_listening_is_taken() {
    const Fast_Network network;
    Raw_Sender sender;
    USR_searcher searcher;
    bool sent = false;
    fake_waiting::at_clock_reading(50, [&] { sent = sender.send(counted_bytes(36)); });
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QVERIFY(sent);
    QCOMPARE(searcher.get_USR_replies(), QStringList(counted_bytes(36).toHex()));
}

void Test_USR_Searcher::each_search_starts_with_empty_lists() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(entries_of(searcher).size(), 1);
    adapter.go_offline();
    QCOMPARE(searcher.search_USR_in_network(), -1);
    QCOMPARE(entries_of(searcher), QList<Entry>());
}

void Test_USR_Searcher::a_copied_address_list_outlives_the_next_search() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    auto searcher = std::make_unique<USR_searcher>();
    searcher->search_USR_in_network();
    const USR_Address_List copied = searcher->get_USR_addresses();
    adapter.go_offline();
    searcher->search_USR_in_network();
    searcher.reset();
    QCOMPARE(copied.size(), 1);
    QCOMPARE(copied.first()->toString(), QString("127.0.0.2"));
}

void Test_USR_Searcher::each_reply_of_wrong_length_starts_the_search_over_data() {
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("times");
    for (const int size : {0, 1, 20, 35, 37, 72, 1500, 65507}) {
        QTest::addRow("%d bytes, once", size) << size << 1;
    }
    QTest::newRow("20 bytes, five times") << 20 << 5;
}

void Test_USR_Searcher::each_reply_of_wrong_length_starts_the_search_over() {
    QFETCH(const int, size);
    QFETCH(const int, times);
    Fast_Network network;
    const Simulated_Adapter& adapter = network.add_adapter();
    Raw_Sender sender;
    int sent = 0;
    fake_waiting::while_blocked([&] {
        if (sent < times && sender.send(QByteArray(size, 'x'))) {
            ++sent;
        }
        network.process_pending();
    });
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(sent, times);
    QCOMPARE(network.frames_of("01").size(), times + 1);
    QCOMPARE(entries_of(searcher), QList<Entry>({{"127.0.0.2", reply_of(adapter)}}));
}

void Test_USR_Searcher::a_spoiled_search_counts_as_answered_whatever_its_repetition_finds() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    adapter.unit().set_faults({.search_reply_bytes = 20});
    connect(&adapter, &Simulated_Adapter::frame_taken, this,
            [&] { adapter.unit().set_faults({.silent_to_search = true}); });
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE(network.frames_of("01").size(), 2);
    QCOMPARE(entries_of(searcher), QList<Entry>());
}

void Test_USR_Searcher::a_spoiled_search_whose_repetition_cannot_bind_leaves_no_replies() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.search_reply_bytes = 20});
    const Port_Taker other_program;
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QVERIFY(other_program.has_port());
    QCOMPARE(searcher.get_USR_replies(), QStringList());
    QCOMPARE(searcher.get_USR_addresses().size(), 1);
}

void Test_USR_Searcher::a_taken_port_fails_at_once_and_leaves_the_lists() {
    Fast_Network network;
    network.add_adapter();
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    const QList<Entry> before = entries_of(searcher);
    QUdpSocket other_program;
    QVERIFY(other_program.bind(QHostAddress::AnyIPv4, search_port));
    const Debug_Lines debug_lines;
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression("^Error binding to port: \"\\S.*\"$"));
    QCOMPARE(searcher.search_USR_in_network(), -1);
    QCOMPARE(entries_of(searcher), before);
    QCOMPARE(fake_waiting::block_count(), 1);
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames_of("01").size(), 1);

    other_program.close();
    QCOMPARE(searcher.search_USR_in_network(), 1);
}

void Test_USR_Searcher::the_port_is_free_between_searches() {
    const Fast_Network network;
    USR_searcher searcher;
    searcher.search_USR_in_network();
    QUdpSocket other_program;
    QVERIFY(other_program.bind(QHostAddress::AnyIPv4, search_port));
}

void Test_USR_Searcher::within_one_pass_the_buffer_keeps_the_first_size_data() {
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QByteArray>("second_entry");
    const QByteArray first = counted_bytes(36);
    QTest::newRow("a longer one is cut")
        << counted_bytes(50, 100) << counted_bytes(50, 100).left(36);
    QTest::newRow("the longest one is cut") << QByteArray(65507, 'y') << QByteArray(36, 'y');
    QTest::newRow("a shorter one keeps the tail before")
        << QByteArray("short") << "short" + first.mid(5);
    QTest::newRow("an empty one leaves all") << QByteArray() << first;
}

void Test_USR_Searcher::within_one_pass_the_buffer_keeps_the_first_size() {
    QFETCH(const QByteArray, second);
    QFETCH(const QByteArray, second_entry);
    const Fast_Network network;
    Raw_Sender sender;
    bool sent = false;
    fake_waiting::while_blocked(
        [&] { sent = sender.send(counted_bytes(36)) && sender.send(second); });
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QVERIFY(sent);
    QCOMPARE(searcher.get_USR_replies(),
             QStringList({counted_bytes(36).toHex(), second_entry.toHex()}));
}

void Test_USR_Searcher::a_failure_is_logged_and_shown_and_frees_the_port() {
    Fast_Network network;
    network.add_adapter();
    const Open_Log log;
    QStringList log_behind_the_box;
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox",
                  .title = "Information",
                  .text = "Search USR error",
                  .icon = QMessageBox::Warning,
                  .action = in_order({[&](QWidget&) {
                                          log_behind_the_box = log.entries();
                                          return QString();
                                      },
                                      press_button("OK")})});
    USR_searcher searcher;
    fake_waiting::fail_at_next_block();
    QCOMPARE(searcher.search_USR_in_network(), -1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log_behind_the_box, QStringList("Search USR error"));
    QCOMPARE(log.entries(), QStringList("Search USR error"));
    QCOMPARE(searcher.search_USR_in_network(), 1);
}

void Test_USR_Searcher::a_failure_of_the_repetition_is_shown_once() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.search_reply_bytes = 20});
    fake_waiting::while_blocked([&] {
        network.process_pending();
        fake_waiting::fail_at_next_block();
    });
    Modal_Robot robot;
    robot.expect({.text = "Search USR error", .icon = QMessageBox::Warning});
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(entries_of(searcher), QList<Entry>());
}

void Test_USR_Searcher::the_stopwatch_measures_from_start_to_stop_or_now() {
    // The clock advances by 10 ms at each reading.
    fake_waiting::reset();
    Search_stopwatch stopwatch;
    QCOMPARE(stopwatch.elapsed_milliseconds(), 0.0);
    stopwatch.start();
    QCOMPARE(stopwatch.elapsed_milliseconds(), 10.0);
    QCOMPARE(stopwatch.elapsed_seconds(), 0.02);
    stopwatch.stop();
    QCOMPARE(stopwatch.elapsed_milliseconds(), 30.0);
    QCOMPARE(stopwatch.elapsed_milliseconds(), 30.0);
    stopwatch.start();
    QCOMPARE(stopwatch.elapsed_milliseconds(), 10.0);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_USR_Searcher test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_usr_searcher.moc"
