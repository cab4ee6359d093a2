// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/open_log.h"
#include "tests/support/private_network.h"
#include "tests/support/raw_sender.h"
#include "usr/usr_configurator.h"

#include <QApplication>
#include <QTest>

/// Finding one's adapter, logging in to it, and reading its settings.
class Test_USR_Login : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_login_is_a_search_a_frame_and_a_wait();
    void the_login_frame_on_the_wire_is_the_known_one();
    void a_good_login_reads_all_settings_from_one_answer();
    void the_allocation_tells_dhcp_from_static();
    void a_new_conversation_logs_in_anew();
    void a_refusal_at_the_first_attempt_is_told_to_the_caller();
    void a_refusal_fails_the_reading_of_the_allocation();
    void a_refusal_at_a_later_attempt_is_shown_but_not_told();
    void a_refusal_leaves_its_attempt_counted();
    void a_silent_adapter_is_asked_a_hundred_times_and_the_login_still_succeeds();
    void after_a_hundred_unanswered_attempts_the_allocation_is_static();
    void an_address_after_a_login_without_answer_fails_data();
    void an_address_after_a_login_without_answer_fails();
    void an_answer_of_wrong_size_is_asked_for_again_data();
    void an_answer_of_wrong_size_is_asked_for_again();
    void two_answers_are_one_text_and_asked_for_again();
    void a_short_answer_gives_what_it_holds_data();
    void a_short_answer_gives_what_it_holds();
    void only_the_reply_of_the_target_address_counts();
    void the_last_reply_of_the_target_address_counts();
    void without_a_matching_reply_the_login_frame_has_no_mac_address();
    void the_name_is_read_by_a_login_of_its_own_unless_a_search_was_made();
    void a_failed_search_fails_each_reading_in_turn_data();
    void a_failed_search_fails_each_reading_in_turn();
    void a_failed_search_leaves_the_name_empty();
};

namespace {

int logins(const Fast_Network& network) { return static_cast<int>(network.frames_of("03").size()); }

using Reading = QString (USR_configurator::*)();

} // namespace

Q_DECLARE_METATYPE(Reading)

void Test_USR_Login::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_USR_Login::a_login_is_a_search_a_frame_and_a_wait() {
    Fast_Network network;
    network.add_adapter();
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(network.frames().size(), 2);
    QCOMPARE(network.frames().first(), QByteArray("ff010102"));
    QCOMPARE(network.notes(),
             QStringList({"127.0.0.2: search, answered", "127.0.0.2: login, answered"}));
    QCOMPARE(fake_waiting::block_count(), 2);
    QCOMPARE(fake_waiting::blocked_milliseconds(), 1000u);
}

void Test_USR_Login::the_login_frame_on_the_wire_is_the_known_one() {
    Fast_Network network;
    Adapter_State state;
    state.mac = QByteArray::fromHex("001122334455");
    state.username = "ab";
    state.password = "cd";
    network.add(state);
    USR_configurator configurator(adapter_ip, "ab", "cd");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(network.frames_of("03"),
             QByteArrayList{"ff13030011223344556162000000006364000000009f"});
}

void Test_USR_Login::a_good_login_reads_all_settings_from_one_answer() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    Adapter_State state = adapter.unit().state();
    state.static_ip = QHostAddress("192.168.0.7");
    state.gateway = QHostAddress("10.20.30.40");
    state.subnet_mask = QHostAddress("255.255.254.0");
    adapter.unit().set_state(state);
    USR_configurator configurator(adapter_ip, "admin", "admin");
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(configurator.get_static_ip(), QString("192.168.0.7"));
        QCOMPARE(configurator.get_subnet_mask(), QString("255.255.254.0"));
        QCOMPARE(configurator.get_gateway(), QString("10.20.30.40"));
        QCOMPARE(configurator.get_ip_allocation(), QString("00"));
        QCOMPARE(configurator.get_usr_name(), QString("OSTREL"));
    }
    QCOMPARE(logins(network), 1);
    QCOMPARE(network.frames_of("01").size(), 1);
}

void Test_USR_Login::the_allocation_tells_dhcp_from_static() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    Adapter_State state = adapter.unit().state();
    for (const bool dhcp : {true, false}) {
        state.dhcp = dhcp;
        adapter.unit().set_state(state);
        USR_configurator configurator(adapter_ip, "admin", "admin");
        QCOMPARE(configurator.get_ip_allocation(), QString(dhcp ? "00" : "80"));
    }
}

void Test_USR_Login::a_new_conversation_logs_in_anew() {
    Fast_Network network;
    network.add_adapter();
    for (int expected_logins = 1; expected_logins <= 2; ++expected_logins) {
        USR_configurator configurator(adapter_ip, "admin", "admin");
        configurator.get_ip_allocation();
        QCOMPARE(logins(network), expected_logins);
    }
}

void Test_USR_Login::a_refusal_at_the_first_attempt_is_told_to_the_caller() {
    Fast_Network network;
    network.add_adapter();
    const Open_Log log;
    Modal_Robot robot;
    expect_warning(robot, "Bad credentials");
    USR_configurator configurator(adapter_ip, "admin", "wrong");
    QCOMPARE(configurator.login_to_USR(), QString("-1"));
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(logins(network), 1);
    QCOMPARE(log.entries(), QStringList());
}

void Test_USR_Login::a_refusal_fails_the_reading_of_the_allocation() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    expect_warning(robot, "Bad credentials");
    USR_configurator configurator(adapter_ip, "wrong", "admin");
    QCOMPARE(configurator.get_ip_allocation(), QString("-1"));
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(logins(network), 1);
}

void Test_USR_Login::a_refusal_at_a_later_attempt_is_shown_but_not_told() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.unanswered_logins = 2});
    Modal_Robot robot;
    expect_warning(robot, "Bad credentials");
    USR_configurator configurator(adapter_ip, "admin", "wrong");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(logins(network), 3);
}

void Test_USR_Login::a_refusal_leaves_its_attempt_counted() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    Modal_Robot robot;
    expect_warning(robot, "Bad credentials");
    USR_configurator configurator(adapter_ip, "admin", "wrong");
    QCOMPARE(configurator.login_to_USR(), QString("-1"));
    QVERIFY2(robot.done(), robot.why());
    adapter.unit().set_faults({.unanswered_logins = -1});
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(logins(network), 1 + 99);
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(logins(network), 1 + 99 + 100);
}

void Test_USR_Login::a_silent_adapter_is_asked_a_hundred_times_and_the_login_still_succeeds() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.unanswered_logins = -1});
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(logins(network), 100);
    QCOMPARE(network.frames_of("01").size(), 100);
    QCOMPARE(fake_waiting::blocked_milliseconds(), 100u * (500 + 500));
}

void Test_USR_Login::after_a_hundred_unanswered_attempts_the_allocation_is_static() {
    Fast_Network network;
    network.add_adapter().unit().set_faults({.unanswered_logins = -1});
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE(configurator.get_ip_allocation(), QString("80"));
    QCOMPARE(logins(network), 100);
}

void Test_USR_Login::an_address_after_a_login_without_answer_fails_data() {
    QTest::addColumn<Reading>("reading");
    QTest::addColumn<QString>("failure");
    QTest::newRow("static address")
        << Reading(&USR_configurator::get_static_ip) << "Get static IP error";
    QTest::newRow("subnet mask") << Reading(&USR_configurator::get_subnet_mask)
                                 << "Get subnet mask error";
    QTest::newRow("gateway") << Reading(&USR_configurator::get_gateway) << "Get gateway error";
}

void Test_USR_Login::an_address_after_a_login_without_answer_fails() {
    QFETCH(const Reading, reading);
    QFETCH(const QString, failure);
    Fast_Network network;
    network.add_adapter().unit().set_faults({.unanswered_logins = -1});
    const Open_Log log;
    Modal_Robot robot;
    expect_warning(robot, failure);
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE((configurator.*reading)(), QString("-1"));
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log.entries(), QStringList(failure));
    QCOMPARE(logins(network), 100);
}

void Test_USR_Login::an_answer_of_wrong_size_is_asked_for_again_data() {
    QTest::addColumn<int>("bytes");
    for (const int bytes : {0, 1, 3, 5, 259, 261, 520}) {
        QTest::addRow("%d bytes", bytes) << bytes;
    }
}

void Test_USR_Login::an_answer_of_wrong_size_is_asked_for_again() {
    QFETCH(const int, bytes);
    Fast_Network network;
    network.add_adapter().unit().set_faults({.login_answer_bytes = bytes});
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(logins(network), 100);
}

void Test_USR_Login::two_answers_are_one_text_and_asked_for_again() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    adapter.unit().set_faults({.copies = 2});
    connect(&adapter, &Simulated_Adapter::frame_taken, this, [&] {
        if (logins(network) == 3) {
            adapter.unit().set_faults({});
        }
    });
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(logins(network), 4);
    QCOMPARE(configurator.get_static_ip(), QString(adapter_ip));
}

void Test_USR_Login::a_short_answer_gives_what_it_holds_data() {
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("static_ip");
    QTest::newRow("ends before the field") << 8 << "-1";
    QTest::newRow("ends at the field") << 9 << "-1";
    QTest::newRow("two bytes of the field") << 11 << "-1";
    QTest::newRow("three bytes are no address") << 12 << "";
    QTest::newRow("whole field") << 13 << adapter_ip;
}

void Test_USR_Login::a_short_answer_gives_what_it_holds() {
    QFETCH(const int, bytes);
    QFETCH(const QString, static_ip);
    Fast_Network network;
    network.add_adapter().unit().set_faults({.login_answer_bytes = bytes});
    Modal_Robot robot;
    if (static_ip == "-1") {
        expect_warning(robot, "Get static IP error");
    }
    USR_configurator configurator(adapter_ip, "admin", "admin");
    QCOMPARE(configurator.get_static_ip(), static_ip);
    QVERIFY2(robot.done(), robot.why());
}

void Test_USR_Login::only_the_reply_of_the_target_address_counts() {
    Fast_Network network;
    network.add_adapter();
    const Simulated_Adapter& target = network.add_adapter();
    network.add_adapter();
    USR_configurator configurator("127.0.0.3", "admin", "admin");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(network.frames_of("03").first().mid(6, 12), target.unit().state().mac.toHex());
}

void Test_USR_Login::the_last_reply_of_the_target_address_counts() {
    Fast_Network network;
    network.add_adapter();
    Adapter_State namesake;
    namesake.mac = QByteArray::fromHex("aabbccddeeff");
    namesake.name = "SECOND";
    const QByteArray second_reply = Adapter_Logic(namesake).search_reply();
    Raw_Sender sender;
    fake_waiting::while_blocked([&] {
        network.process_pending();
        if (logins(network) == 0) {
            sender.send(second_reply);
        }
    });
    USR_configurator configurator(adapter_ip, "admin", "admin");
    configurator.get_data_from_USR();
    QCOMPARE(configurator.get_USR_replies().size(), 2);
    QCOMPARE(configurator.get_usr_name(), QString("SECOND"));
    QCOMPARE(configurator.make_login_frame().mid(6, 12), QString("aabbccddeeff"));
}

void Test_USR_Login::without_a_matching_reply_the_login_frame_has_no_mac_address() {
    Fast_Network network;
    network.add_adapter();
    USR_configurator configurator("127.0.0.22", "admin", "admin");
    QCOMPARE(configurator.login_to_USR(), QString("1"));
    QCOMPARE(logins(network), 100);
    QCOMPARE(network.frames_of("03").last().size(), 2 * (22 - 6));
    QVERIFY(network.notes().contains("127.0.0.2: rejected: 16 bytes instead of 22"));
    QCOMPARE(configurator.get_usr_name(), QString());
}

void Test_USR_Login::the_name_is_read_by_a_login_of_its_own_unless_a_search_was_made() {
    Fast_Network network;
    network.add_adapter();
    USR_configurator first(adapter_ip, "admin", "admin");
    QCOMPARE(first.get_usr_name(), QString("OSTREL"));
    QCOMPARE(logins(network), 1);
    USR_configurator second(adapter_ip, "admin", "admin");
    second.get_data_from_USR();
    QCOMPARE(second.get_usr_name(), QString("OSTREL"));
    QCOMPARE(logins(network), 1);
}

void Test_USR_Login::a_failed_search_fails_each_reading_in_turn_data() {
    an_address_after_a_login_without_answer_fails_data();
    QTest::newRow("allocation") << Reading(&USR_configurator::get_ip_allocation)
                                << "Get ip allocation error";
}

void Test_USR_Login::a_failed_search_fails_each_reading_in_turn() {
    QFETCH(const Reading, reading);
    QFETCH(const QString, failure);
    const QStringList texts = {"Search USR error", "Error in getting data from the USR", failure};
    const Fast_Network network;
    const Open_Log log;
    Modal_Robot robot;
    for (const QString& text : texts) {
        expect_warning(robot, text);
    }
    USR_configurator configurator(adapter_ip, "admin", "admin");
    fail_next_search();
    QCOMPARE((configurator.*reading)(), QString("-1"));
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log.entries(), texts);
}

void Test_USR_Login::a_failed_search_leaves_the_name_empty() {
    const Fast_Network network;
    Modal_Robot robot;
    expect_warning(robot, "Search USR error");
    expect_warning(robot, "Error in getting data from the USR");
    USR_configurator configurator(adapter_ip, "admin", "admin");
    fail_next_search();
    QCOMPARE(configurator.get_usr_name(), QString());
    QVERIFY2(robot.done(), robot.why());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_USR_Login test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_usr_login.moc"
