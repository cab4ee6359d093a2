// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/open_log.h"
#include "tests/support/private_network.h"
#include "usr/usr_configurator.h"

#include <QApplication>
#include <QTest>

#include <new>

namespace {

bool memory_is_short = false;

} // namespace

// The linker redirects the calls of text_to_hex_field() to here (see CMakeLists.txt): it can run
// out of memory on demand, which no input can cause.
QString real_text_to_hex_field(const QString& text,
                               qsizetype width) __asm__("__real__Z17text_to_hex_fieldRK7QStringx");
QString
failing_text_to_hex_field(const QString& text,
                          qsizetype width) __asm__("__wrap__Z17text_to_hex_fieldRK7QStringx");

QString failing_text_to_hex_field(const QString& text, qsizetype width) {
    if (memory_is_short) {
        throw std::bad_alloc();
    }
    return real_text_to_hex_field(text, width);
}

/// Writing an adapter's settings, and finding it again afterwards.
class Test_USR_Setup : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_setup_is_a_search_the_configuration_and_the_apply();
    void the_adapter_takes_the_settings_over();
    void the_configuration_can_be_set_to_dhcp();
    void an_adapter_that_is_not_there_is_written_to_without_mac_address();
    void an_address_that_cannot_be_written_fails_and_sends_nothing_data();
    void an_address_that_cannot_be_written_fails_and_sends_nothing();
    void a_failed_search_fails_the_setup();
    void new_credentials_and_name_reach_the_adapter();
    void the_new_credentials_are_in_force_for_the_next_frames();
    void values_that_are_too_long_are_turned_down_at_once_data();
    void values_that_are_too_long_are_turned_down_at_once();
    void values_that_just_fit_are_sent_data();
    void values_that_just_fit_are_sent();
    void a_name_of_16_two_byte_characters_grows_the_frame();
    void after_a_failed_change_the_old_values_are_in_force();
    void a_failure_of_the_change_itself_is_reported();
    void the_new_name_is_carried_once();
    void an_adapter_is_found_again_by_its_mac_address();
    void of_two_adapters_with_its_mac_address_the_first_counts();
    void an_adapter_that_did_not_come_back_has_no_address();
    void a_failed_search_for_it_is_reported();
};

namespace {

/// A conversation that writes a static address to the adapter at 127.0.0.2.
class Writing_Configurator : public USR_configurator {
public:
    explicit Writing_Configurator(const QString& address = "127.0.0.77",
                                  const QString& allocation = "80")
        : USR_configurator(adapter_ip, address, "255.0.0.0", "127.0.0.1", allocation, "admin",
                           "admin") {}
};

const Adapter_State& only_state(const Fast_Network& network) {
    return network.adapters().front()->unit().state();
}

} // namespace

void Test_USR_Setup::cleanup() {
    memory_is_short = false;
    QCOMPARE(windows_left(), QStringList());
}

void Test_USR_Setup::a_setup_is_a_search_the_configuration_and_the_apply() {
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator;
    QCOMPARE(configurator.setup_USR(), 1);
    network.process_pending();
    QCOMPARE(network.notes(), QStringList({"127.0.0.2: search, answered",
                                           "127.0.0.2: configuration, waits for its apply",
                                           "127.0.0.77: apply, restarts as 127.0.0.77"}));
    QCOMPARE(network.frames().size(), 3);
    QCOMPARE(network.frames_of("05").first().size(), 2 * 89);
    QCOMPARE(network.frames_of("04").first().size(), 2 * 22);
    QCOMPARE(fake_waiting::block_count(), 1);
}

void Test_USR_Setup::the_adapter_takes_the_settings_over() {
    Fast_Network network;
    network.add_adapter();
    USR_configurator configurator(adapter_ip, "127.1.2.3", "255.255.254.0", "127.9.8.7", "80",
                                  "admin", "admin");
    QCOMPARE(configurator.setup_USR(), 1);
    network.process_pending();
    const Adapter_State& state = only_state(network);
    QCOMPARE(state.dhcp, false);
    QCOMPARE(state.static_ip.toString(), QString("127.1.2.3"));
    QCOMPARE(state.subnet_mask.toString(), QString("255.255.254.0"));
    QCOMPARE(state.gateway.toString(), QString("127.9.8.7"));
    QCOMPARE(state.address.toString(), QString("127.1.2.3"));
    QCOMPARE(state.name, QByteArray("OSTREL"));
    QCOMPARE(state.username, QByteArray("admin"));
    QCOMPARE(state.password, QByteArray("admin"));
}

void Test_USR_Setup::the_configuration_can_be_set_to_dhcp() {
    Fast_Network network;
    Adapter_State state = network.add_adapter().unit().state();
    state.dhcp = false;
    state.dhcp_address = QHostAddress("127.0.0.90");
    network.adapters().front()->unit().set_state(state);
    Writing_Configurator configurator("127.0.0.2", "00");
    QCOMPARE(configurator.setup_USR(), 1);
    network.process_pending();
    QCOMPARE(only_state(network).dhcp, true);
    QCOMPARE(only_state(network).address.toString(), QString("127.0.0.90"));
}

void Test_USR_Setup::an_adapter_that_is_not_there_is_written_to_without_mac_address() {
    Fast_Network network;
    Writing_Configurator configurator;
    QCOMPARE(configurator.setup_USR(), 1);
    network.process_pending();
    // The tool knows neither MAC address nor name.
    QCOMPARE(network.frames_of("05").first().size(), 2 * (89 - 6 - 6 - 16));
    QCOMPARE(network.frames_of("04").first().size(), 2 * (22 - 6));
}

void Test_USR_Setup::an_address_that_cannot_be_written_fails_and_sends_nothing_data() {
    QTest::addColumn<QString>("static_ip");
    QTest::newRow("number above 255") << "10.0.0.256";
    QTest::newRow("999.1.1.1") << "999.1.1.1";
    QTest::newRow("failed reading") << "-1";
    QTest::newRow("empty") << "";
}

void Test_USR_Setup::an_address_that_cannot_be_written_fails_and_sends_nothing() {
    QFETCH(const QString, static_ip);
    Fast_Network network;
    network.add_adapter();
    const Open_Log log;
    Modal_Robot robot;
    expect_warning(robot, "Error in the setup of USR");
    Writing_Configurator configurator(static_ip);
    QCOMPARE(configurator.setup_USR(), -1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log.entries(), QStringList("Error in the setup of USR"));
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames(), QByteArrayList{"ff010102"});
}

void Test_USR_Setup::a_failed_search_fails_the_setup() {
    const QStringList texts = {"Search USR error", "Error in getting data from the USR",
                               "Error in the setup of USR"};
    const Fast_Network network;
    const Open_Log log;
    Modal_Robot robot;
    for (const QString& text : texts) {
        expect_warning(robot, text);
    }
    Writing_Configurator configurator;
    fail_next_search();
    QCOMPARE(configurator.setup_USR(), -1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log.entries(), texts);
}

void Test_USR_Setup::new_credentials_and_name_reach_the_adapter() {
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator("127.0.0.2");
    QCOMPARE(configurator.change_credentials_and_name("keller", "geheim", "WEST WING"), 1);
    network.process_pending();
    QCOMPARE(only_state(network).username, QByteArray("keller"));
    QCOMPARE(only_state(network).password, QByteArray("geheim"));
    QCOMPARE(only_state(network).name, QByteArray("WEST WING"));
    QCOMPARE(only_state(network).static_ip.toString(), QString("127.0.0.2"));
}

void Test_USR_Setup::the_new_credentials_are_in_force_for_the_next_frames() {
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator("127.0.0.2");
    QCOMPARE(configurator.change_credentials_and_name("keller", "geheim", "WEST"), 1);
    QCOMPARE(configurator.change_credentials_and_name("dach", "offen", "EAST"), 1);
    network.process_pending();
    QCOMPARE(only_state(network).username, QByteArray("dach"));
    QCOMPARE(only_state(network).password, QByteArray("offen"));
    QCOMPARE(only_state(network).name, QByteArray("EAST"));
}

void Test_USR_Setup::values_that_are_too_long_are_turned_down_at_once_data() {
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("name");
    QTest::newRow("user name of 7") << "1234567"
                                    << "p"
                                    << "n";
    QTest::newRow("password of 7") << "u"
                                   << "1234567"
                                   << "n";
    QTest::newRow("name of 17") << "u"
                                << "p" << QString(17, 'n');
}

void Test_USR_Setup::values_that_are_too_long_are_turned_down_at_once() {
    QFETCH(const QString, username);
    QFETCH(const QString, password);
    QFETCH(const QString, name);
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator;
    QCOMPARE(configurator.change_credentials_and_name(username, password, name), -1);
    QCOMPARE(network.serve(), 0);
    QCOMPARE(fake_waiting::block_count(), 0);
    QVERIFY(!configurator.make_apply_frame().contains("31323334353637"));
}

void Test_USR_Setup::values_that_just_fit_are_sent_data() {
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("name");
    QTest::newRow("longest") << "123456"
                             << "654321"
                             << "sixteen letters!";
    QTest::newRow("empty") << ""
                           << ""
                           << "";
}

void Test_USR_Setup::values_that_just_fit_are_sent() {
    QFETCH(const QString, username);
    QFETCH(const QString, password);
    QFETCH(const QString, name);
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator;
    QCOMPARE(configurator.change_credentials_and_name(username, password, name), 1);
    network.process_pending();
    QCOMPARE(only_state(network).username, username.toUtf8());
    QCOMPARE(only_state(network).password, password.toUtf8());
    QCOMPARE(only_state(network).name, name.toUtf8());
}

void Test_USR_Setup::a_name_of_16_two_byte_characters_grows_the_frame() {
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator;
    QCOMPARE(configurator.change_credentials_and_name("u", "p", QString(16, QChar(0xfc))), 1);
    network.process_pending();
    const QByteArray frame = network.frames_of("05").first();
    QCOMPARE(frame.size(), 2 * (89 + 16));
    QCOMPARE(frame.mid(2, 2), QByteArray("56"));
    QVERIFY(network.notes().contains("127.0.0.2: rejected: 105 bytes instead of 89"));
}

void Test_USR_Setup::after_a_failed_change_the_old_values_are_in_force() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    expect_warning(robot, "Error in the setup of USR");
    Writing_Configurator configurator("10.0.0.256");
    const QString old_apply = [&] {
        configurator.get_data_from_USR();
        return configurator.make_apply_frame();
    }();
    QCOMPARE(configurator.change_credentials_and_name("keller", "geheim", "WEST WING"), -1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(configurator.make_apply_frame(), old_apply);
    QCOMPARE(network.serve(), 0);
    QCOMPARE(only_state(network).name, QByteArray("OSTREL"));
}

void Test_USR_Setup::a_failure_of_the_change_itself_is_reported() {
    const QString text = "Error changing username, password and name of USR";
    const Fast_Network network;
    const Open_Log log;
    Modal_Robot robot;
    expect_warning(robot, text);
    Writing_Configurator configurator;
    memory_is_short = true;
    QCOMPARE(configurator.change_credentials_and_name("keller", "geheim", "WEST WING"), -1);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log.entries(), QStringList(text));
}

void Test_USR_Setup::the_new_name_is_carried_once() {
    Fast_Network network;
    network.add_adapter();
    Writing_Configurator configurator("127.0.0.2");
    QCOMPARE(configurator.change_credentials_and_name("admin", "admin", "WEST"), 1);
    network.process_pending();
    Adapter_State renamed = only_state(network);
    renamed.name = "THIRD";
    network.adapters().front()->unit().set_state(renamed);
    QCOMPARE(configurator.setup_USR(), 1);
    network.process_pending();
    QCOMPARE(only_state(network).name, QByteArray("THIRD"));
}

void Test_USR_Setup::an_adapter_is_found_again_by_its_mac_address() {
    Fast_Network network;
    network.add_adapter();
    network.add_adapter();
    Writing_Configurator configurator("127.0.0.77");
    QCOMPARE(configurator.setup_USR(), 1);
    QCOMPARE(configurator.get_IP_after_hanging(), QString("127.0.0.77"));
    QCOMPARE(configurator.get_USR_replies().size(), 2);
}

void Test_USR_Setup::of_two_adapters_with_its_mac_address_the_first_counts() {
    Fast_Network network;
    const Adapter_State state = network.add_adapter().unit().state();
    Adapter_State twin = state;
    twin.address = QHostAddress("127.0.0.99");
    network.add(twin);
    USR_configurator configurator(adapter_ip, "admin", "admin");
    configurator.get_data_from_USR();
    QCOMPARE(configurator.get_IP_after_hanging(), QString(adapter_ip));
    network.adapters().front()->go_offline();
    QCOMPARE(configurator.get_IP_after_hanging(), QString("127.0.0.99"));
}

void Test_USR_Setup::an_adapter_that_did_not_come_back_has_no_address() {
    Fast_Network network;
    Simulated_Adapter& adapter = network.add_adapter();
    adapter.unit().set_faults({.never_comes_back = true});
    Writing_Configurator configurator;
    QCOMPARE(configurator.setup_USR(), 1);
    QCOMPARE(configurator.get_IP_after_hanging(), QString());
    QVERIFY(!adapter.is_online());
}

void Test_USR_Setup::a_failed_search_for_it_is_reported() {
    const QStringList texts = {"Search USR error", "Get IP after hanging error"};
    const Fast_Network network;
    const Open_Log log;
    Modal_Robot robot;
    for (const QString& text : texts) {
        expect_warning(robot, text);
    }
    Writing_Configurator configurator;
    fail_next_search();
    QCOMPARE(configurator.get_IP_after_hanging(), QString());
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(log.entries(), texts);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_USR_Setup test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_usr_setup.moc"
