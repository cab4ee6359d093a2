// SPDX-License-Identifier: MIT

#include "tests/support/device_watch.h"
#include "tests/support/network_test.h"

/// The window is deleted in each of its states. Leftovers would show in cleanup(), and under
/// AddressSanitizer.
class Test_Network_Window_Ends : public Network_Test {
    Q_OBJECT

private slots:
    void before_any_method_was_chosen();
    void after_the_wizard_was_left_half_way_data();
    void after_the_wizard_was_left_half_way();
    void while_the_first_answer_is_awaited();
    void while_an_answer_is_on_its_way();
    void while_connected();
    void after_off();
    void within_the_seven_seconds_after_on();
    void with_a_refresh_locked_out();
    void with_the_refresh_of_a_factory_reset_ahead();
    void on_the_serial_line();
    void with_a_serial_report_being_gathered();
    void with_the_network_chosen_and_a_port_standing();
    void after_both_paths_and_several_adapter_dialogs();
};

void Test_Network_Window_Ends::before_any_method_was_chosen() {
    at->robot.expect(escape_dialog("Select_connection_method_Dialog"));
    at->open();
    at->close();
    Network_Fixture::settle();
    QCOMPARE(windows_left(), QStringList());
}

void Test_Network_Window_Ends::after_the_wizard_was_left_half_way_data() {
    QTest::addColumn<int>("dialogs_before");
    QTest::newRow("method") << 0;
    QTest::newRow("hardware") << 1;
    QTest::newRow("login") << 2;
    QTest::newRow("IP settings") << 3;
}

void Test_Network_Window_Ends::after_the_wizard_was_left_half_way() {
    QFETCH(const int, dialogs_before);
    at->expect_network_path(dialogs_before);
    at->robot.expect(close_dialog(network_path().at(dialogs_before)));
    at->open();
    at->close();
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
}

void Test_Network_Window_Ends::while_the_first_answer_is_awaited() {
    QVERIFY(at->open_silent());
    at->close();
    QCOMPARE(Network_Fixture::socket_count(), 0);
    at->adapter.send_from_switch(at->report());
    Network_Fixture::settle();
}

void Test_Network_Window_Ends::while_an_answer_is_on_its_way() {
    at->expect_network_path();
    at->open();
    // Neither the switch nor the window has processed events yet.
    at->close();
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QCOMPARE(Network_Fixture::socket_count(), 0);
}

void Test_Network_Window_Ends::while_connected() {
    QVERIFY(at->open_network());
    at->adapter.send_from_switch("**C 3\n");
    at->close();
    QCOMPARE(Network_Fixture::socket_count(), 0);
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
}

void Test_Network_Window_Ends::after_off() {
    QVERIFY(at->open_network());
    at->button("pushButton_OFF_Connection").click();
    at->close();
    Network_Fixture::settle();
}

void Test_Network_Window_Ends::within_the_seven_seconds_after_on() {
    constexpr int longer_than_after_on = 7500;
    QVERIFY(at->open_silent());
    at->button("pushButton_ON_Connection").click();
    at->close();
    // A timer that outlives the window would end this process.
    Network_Fixture::settle(longer_than_after_on);
}

void Test_Network_Window_Ends::with_a_refresh_locked_out() {
    constexpr int longer_than_the_lock_out = 1900;
    QVERIFY(at->open_network());
    at->button("pushButton_Refresh").click();
    at->close();
    Network_Fixture::settle(longer_than_the_lock_out);
}

void Test_Network_Window_Ends::with_the_refresh_of_a_factory_reset_ahead() {
    constexpr int longer_than_the_reset_wait = 1500;
    QVERIFY(at->open_network());
    at->robot.expect({.class_name = "Yes_No_Dialog", .action = press_button("Confirm")});
    at->button("pushButton_Factory_Reset").click();
    QCOMPARE(at->take_commands(1), QByteArrayList{"//F"});
    at->close();
    Network_Fixture::settle(longer_than_the_reset_wait);
    QCOMPARE(at->taken, QByteArrayList());
}

void Test_Network_Window_Ends::on_the_serial_line() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    at->close();
    QCOMPARE(watch.events(), QStringList("close"));
}

void Test_Network_Window_Ends::with_a_serial_report_being_gathered() {
    constexpr int longer_than_the_report_wait = 1200;
    at->robot.expect(choose_serial());
    QVERIFY(at->open_connected());
    at->close();
    Network_Fixture::settle(longer_than_the_report_wait);
}

void Test_Network_Window_Ends::with_the_network_chosen_and_a_port_standing() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    at->robot.expect(choose_network());
    at->robot.expect(close_dialog("Select_hardware_Dialog"));
    at->run_wizard();
    at->close();
    QCOMPARE(watch.events(), QStringList("close"));
    Network_Fixture::settle();
}

void Test_Network_Window_Ends::after_both_paths_and_several_adapter_dialogs() {
    QVERIFY(at->open_network());
    at->robot.expect(choose_serial());
    at->run_wizard();
    at->expect_network_path();
    at->run_wizard();
    at->expect_network_path(3);
    at->robot.expect(close_dialog("IP_Settings_Dialog"));
    at->run_wizard();
    at->close();
    QCOMPARE(Network_Fixture::socket_count(), 0);
    Network_Fixture::settle();
}

int main(int argc, char** argv) { return run_network_test<Test_Network_Window_Ends>(argc, argv); }
#include "test_network_window_ends.moc"
