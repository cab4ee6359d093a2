// SPDX-License-Identifier: MIT

#include "tests/support/network_test.h"
#include "tests/support/stated_wait.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"
#include "tests/support/window_waits.h"

#include <QUdpSocket>

using namespace std::chrono_literals;

/// The length of each wait of a Plus or Pro on its network link, in virtual time. Those of a
/// connection and of the first answer after ON end the process: see test_network_process_ends.
class Test_Network_Waits : public Network_Test {
    Q_OBJECT

private slots:
    void what_the_loopback_carries_arrives_before_the_next_timer();
    void the_terminal_is_scrolled_again_after_100_ms();
    void a_report_is_read_at_once();
    void refresh_is_disabled_again_after_50_ms_and_locked_out_for_1700_ms();
    void a_custom_entry_is_followed_by_a_refresh_after_800_ms();
    void a_factory_reset_is_followed_by_a_refresh_after_1350_ms();
};

void Test_Network_Waits::the_terminal_is_scrolled_again_after_100_ms() {
    QVERIFY(at->open_network());
    Network_Fixture::settle(200);
    at->adapter.send_from_switch("a chunk\n");
    QVERIFY(wait_until([this] { return at->terminal_text().endsWith("a chunk\n"); }));
    QCOMPARE(wrong_wait(Window_Waits(*at).second_scroll(), 100ms), QByteArray());
}

void Test_Network_Waits::a_report_is_read_at_once() {
    QVERIFY(at->open_silent());
    at->adapter.send_from_switch(at->report());
    const auto wait = virtual_time::time_until([this] { return at->is_filled(); });
    QCOMPARE(wrong_wait(wait, 0ms), QByteArray());
}

void Test_Network_Waits::refresh_is_disabled_again_after_50_ms_and_locked_out_for_1700_ms() {
    QVERIFY(at->open_network());
    at->silence_switch();
    const Window_Waits::Lock_Out wait = Window_Waits(*at).refresh_lock_out();
    QCOMPARE(wrong_wait(wait.disabled, 50ms), QByteArray());
    QCOMPARE(wrong_wait(wait.enabled, 1700ms), QByteArray());
}

void Test_Network_Waits::a_custom_entry_is_followed_by_a_refresh_after_800_ms() {
    QVERIFY(at->open_network());
    QCOMPARE(wrong_wait(Window_Waits(*at).custom_entry(), 800ms), QByteArray());
}

void Test_Network_Waits::a_factory_reset_is_followed_by_a_refresh_after_1350_ms() {
    QVERIFY(at->open_network());
    QCOMPARE(wrong_wait(Window_Waits(*at).factory_reset(at->robot), 1350ms), QByteArray());
}

void Test_Network_Waits::what_the_loopback_carries_arrives_before_the_next_timer() {
    QUdpSocket receiver;
    QVERIFY(receiver.bind(QHostAddress::LocalHost));
    QUdpSocket sender;
    for (int round = 0; round < 1000; ++round) {
        QCOMPARE(sender.writeDatagram("word", QHostAddress::LocalHost, receiver.localPort()), 4);
        virtual_time::pass(1ms);
        QCOMPARE(receiver.pendingDatagramSize(), 4);
        receiver.readDatagram(nullptr, 0);
    }
}

int main(int argc, char** argv) { return run_network_test<Test_Network_Waits>(argc, argv); }
#include "test_network_waits.moc"
