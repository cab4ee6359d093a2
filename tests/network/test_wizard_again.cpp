// SPDX-License-Identifier: MIT

#include "sim/port_list.h"
#include "tests/support/device_watch.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"

/// The connection wizard while a link is open.
class Test_Wizard_Again : public Network_Test {
    Q_OBJECT

private slots:
    void a_dialog_closed_by_its_frame_leaves_the_network_link_in_force_data();
    void a_dialog_closed_by_its_frame_leaves_the_network_link_in_force();
    void a_closed_method_dialog_leaves_the_serial_link_in_force();
    void from_the_serial_line_to_the_network_the_port_is_closed();
    void from_the_network_to_the_serial_line_the_socket_is_closed();
    void there_and_back_again_one_device_stands_at_a_time();
    void another_adapter_replaces_the_socket();
    void behind_closed_ip_settings_on_shows_one_address_and_the_other_name();
    void a_new_link_empties_the_terminal_and_takes_the_custom_items_out();
    void the_ports_are_listed_anew_each_time();
    void filling_the_port_list_opens_the_port_and_lets_changes_through();
    void on_the_network_path_changes_send_nothing_before_the_answer();
};

void Test_Wizard_Again::a_dialog_closed_by_its_frame_leaves_the_network_link_in_force_data() {
    QTest::addColumn<int>("dialogs_before");
    QTest::newRow("method") << 0;
    QTest::newRow("hardware") << 1;
    QTest::newRow("login") << 2;
    QTest::newRow("IP settings") << 3;
}

void Test_Wizard_Again::a_dialog_closed_by_its_frame_leaves_the_network_link_in_force() {
    QFETCH(const int, dialogs_before);
    QVERIFY(at->open_network());
    const QString terminal = at->terminal_text();
    at->expect_network_path(dialogs_before);
    at->robot.expect(close_dialog(network_path().at(dialogs_before)));
    at->run_wizard();
    QVERIFY2(at->robot.done(), at->robot.why());
    Network_Fixture::settle();
    QVERIFY(at->is_connected());
    QVERIFY(at->is_filled());
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(at->terminal_text(), terminal);
    QCOMPARE(at->visible_link_widgets(), Network_Fixture::network_widgets());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->change_reaches_adapter());
}

void Test_Wizard_Again::a_closed_method_dialog_leaves_the_serial_link_in_force() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    at->robot.expect(close_dialog("Select_connection_method_Dialog"));
    at->run_wizard();
    QVERIFY(at->is_connected());
    QCOMPARE(watch.events(), QStringList());
    QVERIFY(at->change_reaches_serial_line());
}

void Test_Wizard_Again::from_the_serial_line_to_the_network_the_port_is_closed() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    at->expect_network_path();
    at->run_wizard();
    QCOMPARE(watch.events(), QStringList("close"));
    QVERIFY(!at->is_connected());
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QCOMPARE(at->visible_link_widgets(), Network_Fixture::network_widgets());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->change_reaches_adapter());
}

void Test_Wizard_Again::from_the_network_to_the_serial_line_the_socket_is_closed() {
    QVERIFY(at->open_network());
    at->robot.expect(choose_serial());
    at->run_wizard();
    QCOMPARE(Network_Fixture::socket_count(), 0);
    QVERIFY(!at->is_connected());
    QCOMPARE(at->visible_link_widgets(), Network_Fixture::serial_widgets());
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
    QCOMPARE(at->taken, QByteArrayList());
    const QString terminal = at->terminal_text();
    at->adapter.send_from_switch("**M 4\n");
    Network_Fixture::settle();
    QCOMPARE(at->terminal_text(), terminal);
    QVERIFY(at->change_reaches_serial_line());
}

void Test_Wizard_Again::there_and_back_again_one_device_stands_at_a_time() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    int open_ports = 1;
    for (int round = 0; round < 2; ++round) {
        at->expect_network_path();
        at->run_wizard();
        QVERIFY(at->wait_filled());
        const QStringList closing = watch.events();
        open_ports += static_cast<int>(closing.count("open") - closing.count("close"));
        QCOMPARE(open_ports, 0);
        QCOMPARE(Network_Fixture::socket_count(), 1);

        at->robot.expect(choose_serial());
        at->run_wizard();
        QVERIFY(at->wait_filled());
        const QStringList opening = watch.events();
        open_ports += static_cast<int>(opening.count("open") - opening.count("close"));
        QCOMPARE(open_ports, 1);
        QCOMPARE(Network_Fixture::socket_count(), 0);
    }
}

void Test_Wizard_Again::another_adapter_replaces_the_socket() {
    QVERIFY(at->open_network());
    QByteArrayList others;
    Simulated_Adapter& second = at->network.add_adapter();
    connect(&second, &Simulated_Adapter::switch_command_taken, this,
            [&others](const QByteArray& command) { others << command; });
    at->robot.expect(choose_network());
    at->robot.expect(choose_adapter(1));
    at->robot.expect(log_in());
    at->robot.expect(connect_adapter());
    at->run_wizard();
    QVERIFY(!at->is_connected());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(wait_until([&] { return others == at->start_commands(); }));
    at->adapter.send_from_switch(at->report());
    Network_Fixture::settle();
    QVERIFY(!at->is_connected());
    second.send_from_switch(at->report());
    QVERIFY(at->wait_connected());
    QCOMPARE(at->taken, QByteArrayList());
}

void Test_Wizard_Again::behind_closed_ip_settings_on_shows_one_address_and_the_other_name() {
    QVERIFY(at->open_network());
    Adapter_State second = Adapter_Network::numbered({}, 1);
    second.name = "WEST";
    at->network.add(second);
    at->robot.expect(choose_network());
    at->robot.expect(choose_adapter(1));
    at->robot.expect(log_in());
    at->robot.expect(close_dialog("IP_Settings_Dialog"));
    at->run_wizard();
    QVERIFY2(at->robot.done(), at->robot.why());
    at->button("pushButton_OFF_Connection").click();
    at->button("pushButton_ON_Connection").click();
    QVERIFY(at->wait_connected());
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
    QCOMPARE(at->label("label_name_of_USR").text(), QString("  Name: WEST"));
    QVERIFY(at->change_reaches_adapter());
}

void Test_Wizard_Again::a_new_link_empties_the_terminal_and_takes_the_custom_items_out() {
    QVERIFY(at->open_network());
    QVERIFY(!at->terminal_text().isEmpty());
    at->silence_switch();
    at->expect_network_path();
    at->run_wizard();
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QCOMPARE(at->terminal_text(), QString());
    QCOMPARE(at->resolution(1).count(), 9);
    QVERIFY(!at->is_connected());
}

void Test_Wizard_Again::the_ports_are_listed_anew_each_time() {
    const Simulated_Switch second;
    at->ports << second.device_name();
    QVERIFY(at->open_serial());
    const QComboBox& list = at->combo("comboBox_SelectPort");
    QCOMPARE(list.count(), 2);
    QCOMPARE(list.itemText(0), at->device.port_name());
    QCOMPARE(list.itemText(1), second.port_name());

    list_ports({second.device_name(), at->device.device_name()});
    at->robot.expect(choose_serial());
    at->run_wizard();
    QCOMPARE(list.count(), 2);
    QCOMPARE(list.itemText(0), second.port_name());
    QCOMPARE(list.currentIndex(), 0);
}

void Test_Wizard_Again::filling_the_port_list_opens_the_port_and_lets_changes_through() {
    Fault_Plan silence;
    silence.silence = true;
    at->device.set_faults(silence);
    const Device_Watch watch(at->device.device_name());
    at->robot.expect(choose_serial());
    at->open();
    // The list's first line counts as a choice; then the path opens the port itself.
    QCOMPARE(watch.events(), QStringList({"open", "close", "open"}));
    QVERIFY(wait_until(
        [this] { return at->device.received_commands().endsWith(at->start_commands().last()); }));
    QVERIFY(at->change_reaches_serial_line());

    // This time emptying the list counts as a choice as well.
    at->robot.expect(choose_serial());
    at->run_wizard();
    QCOMPARE(watch.events(), QStringList({"close", "open", "close", "open"}));
    QVERIFY(!at->is_connected());
}

void Test_Wizard_Again::on_the_network_path_changes_send_nothing_before_the_answer() {
    QVERIFY(at->open_silent());
    at->combo("comboBox_KM_Control").setCurrentIndex(2);
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
}

int main(int argc, char** argv) { return run_network_test<Test_Wizard_Again>(argc, argv); }
#include "test_wizard_again.moc"
