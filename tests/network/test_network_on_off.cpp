// SPDX-License-Identifier: MIT

#include "tests/support/device_watch.h"
#include "tests/support/expect_box.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>

/// ON, OFF, refresh and reset while the network is the chosen method.
class Test_Network_On_Off : public Network_Test {
    Q_OBJECT

private slots:
    void off_closes_the_socket_and_drops_what_is_written();
    void off_before_the_first_answer_closes_the_socket();
    void off_after_an_unanswered_refresh_leaves_the_indicator();
    void on_makes_a_new_socket_and_asks_for_everything();
    void on_twice_replaces_the_socket_and_both_timers_find_the_button_disabled();
    void a_refresh_asks_in_order_and_applies_the_answer();
    void a_factory_reset_refreshes_after_1350_ms();
    void a_vanished_adapter_is_not_noticed();
    void an_adapter_that_comes_back_is_refreshed();
    void with_the_network_chosen_and_a_port_standing_all_writes_are_dropped();
    void with_the_network_chosen_off_leaves_the_standing_port();
    void on_after_a_half_way_wizard_closes_the_port_and_links_the_known_adapter();
    void on_on_the_serial_path_arms_no_timer();
};

void Test_Network_On_Off::off_closes_the_socket_and_drops_what_is_written() {
    QVERIFY(at->open_network());
    at->button("pushButton_OFF_Connection").click();
    QCOMPARE(Network_Fixture::socket_count(), 0);
    QVERIFY(!at->is_connected());
    QVERIFY(at->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(!at->button("pushButton_OFF_Connection").isEnabled());
    QVERIFY(!at->button("pushButton_Refresh").isEnabled());
    QVERIFY(!at->button("pushButton_Admin_Settings").isEnabled());
    QVERIFY(!at->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(at->button("pushButton_Connection_Settings").isEnabled());
    at->combo("comboBox_KM_Control").setCurrentIndex(2);
    QVERIFY(at->run_slot("on_pushButton_Soft_Reset_clicked"));
    // This one is written past the guard.
    expect_information(at->robot, "Display topology has been updated");
    QVERIFY(at->run_slot("on_pushButtonSubmit_clicked"));
    const QString terminal = at->terminal_text();
    at->adapter.send_from_switch("**C 4\n");
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(at->terminal_text(), terminal);
}

void Test_Network_On_Off::off_before_the_first_answer_closes_the_socket() {
    QVERIFY(at->open_silent());
    // The button is disabled while the indicator is red, but its slot still works.
    QVERIFY(at->run_slot("on_pushButton_OFF_Connection_clicked"));
    QCOMPARE(Network_Fixture::socket_count(), 0);
    QVERIFY(!at->is_connected());
    QVERIFY(at->run_slot("on_pushButton_OFF_Connection_clicked"));
    QVERIFY(!at->is_connected());
}

void Test_Network_On_Off::off_after_an_unanswered_refresh_leaves_the_indicator() {
    QVERIFY(at->open_network());
    at->silence_switch();
    at->button("pushButton_Refresh").click();
    at->button("pushButton_OFF_Connection").click();
    QCOMPARE(Network_Fixture::socket_count(), 0);
    QVERIFY(at->is_connected());
    QVERIFY(!at->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(!at->combo("comboBox_KM_Control").isEnabled());
}

void Test_Network_On_Off::on_makes_a_new_socket_and_asks_for_everything() {
    QVERIFY(at->open_network());
    at->button("pushButton_OFF_Connection").click();
    Switch_State state;
    state.km_channel = 4;
    at->unit.set_state(state);
    at->button("pushButton_ON_Connection").click();
    QCOMPARE(at->terminal_text(), QString());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(!at->is_connected());
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
    QCOMPARE(at->combo("comboBox_KM_Control").currentIndex() + 1, 4);
    QCOMPARE(at->label("label_current_Ip").text(), QString("  IP: 127.0.0.2"));
    QCOMPARE(at->label("label_name_of_USR").text(), QString("  Name: OSTREL"));
}

void Test_Network_On_Off::on_twice_replaces_the_socket_and_both_timers_find_the_button_disabled() {
    constexpr int both_timers_over = 7500;
    QVERIFY(at->open_network());
    at->button("pushButton_OFF_Connection").click();
    at->button("pushButton_ON_Connection").click();
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->button("pushButton_ON_Connection").isEnabled());
    at->button("pushButton_ON_Connection").click();
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->wait_filled());
    QCOMPARE(at->take_commands(6), at->start_commands() + at->start_commands());
    Network_Fixture::settle(both_timers_over);
    QVERIFY(at->is_connected());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_On_Off::a_refresh_asks_in_order_and_applies_the_answer() {
    QVERIFY(at->open_network());
    Switch_State state;
    state.usb_channel = 3;
    state.layout_positions = {13, 14, 15, 16};
    at->unit.set_state(state);
    at->button("pushButton_Refresh").click();
    QVERIFY(at->is_connected());
    QVERIFY(!at->is_filled());
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QVERIFY(at->wait_filled());
    QCOMPARE(at->combo("comboBox_USB_Control").currentIndex() + 1, 3);
    QCOMPARE(at->layout_positions(), QList<int>({13, 14, 15, 16}));
}

void Test_Network_On_Off::a_factory_reset_refreshes_after_1350_ms() {
    constexpr int stated_wait = 1350;
    constexpr int serial_wait = 2500;
    Switch_State state;
    state.km_channel = 4;
    at->unit.set_state(state);
    QVERIFY(at->open_network());
    QCOMPARE(at->combo("comboBox_KM_Control").currentIndex() + 1, 4);
    QElapsedTimer timer;
    at->robot.expect({.class_name = "Yes_No_Dialog", .action = [&timer](QWidget& dialog) {
                          timer.start();
                          return press_button("Confirm")(dialog);
                      }});
    at->button("pushButton_Factory_Reset").click();
    QVERIFY(wait_until([&] { return at->taken.contains("//rl"); }));
    const qint64 waited = timer.elapsed();
    QVERIFY2(waited >= stated_wait, qPrintable(QString::number(waited)));
    QVERIFY2(waited < serial_wait, qPrintable(QString::number(waited)));
    QCOMPARE(at->take_commands(1 + at->start_commands().size()),
             QByteArrayList{"//F"} + at->start_commands());
    QVERIFY(at->wait_filled());
    QCOMPARE(at->combo("comboBox_KM_Control").currentIndex() + 1, 1);
}

void Test_Network_On_Off::a_vanished_adapter_is_not_noticed() {
    QVERIFY(at->open_network());
    at->adapter.go_offline();
    for (int channel = 1; channel <= 4; ++channel) {
        at->combo("comboBox_KM_Control").setCurrentIndex(channel % 4);
        at->button("pushButton_Soft_Reset").click();
        Network_Fixture::settle();
    }
    QVERIFY(at->is_connected());
    QVERIFY(at->combo("comboBox_KM_Control").isEnabled());
    at->button("pushButton_Refresh").click();
    Network_Fixture::settle();
    QVERIFY(at->is_connected());
    QVERIFY(!at->is_filled());
    QCOMPARE(Network_Fixture::socket_count(), 1);
}

void Test_Network_On_Off::an_adapter_that_comes_back_is_refreshed() {
    QVERIFY(at->open_network());
    at->adapter.go_offline();
    at->button("pushButton_Soft_Reset").click();
    Network_Fixture::settle();
    QVERIFY(at->adapter.go_online());
    QVERIFY(at->run_slot("refresh_UI"));
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_On_Off::with_the_network_chosen_and_a_port_standing_all_writes_are_dropped() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    at->robot.expect(choose_network());
    at->robot.expect(close_dialog("Select_hardware_Dialog"));
    at->run_wizard();
    QVERIFY(at->is_connected());
    QCOMPARE(at->visible_link_widgets(), Network_Fixture::serial_widgets());
    at->device.clear_record();
    at->combo("comboBox_KM_Control").setCurrentIndex(2);
    at->button("pushButton_Soft_Reset").click();
    expect_information(at->robot, "Display topology has been updated");
    at->button("pushButtonSubmit").click();
    at->button("pushButton_Refresh").click();
    Network_Fixture::settle();
    QVERIFY(at->device.received_bytes().isEmpty());
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(watch.events(), QStringList());
    // What the switch sends is still received.
    at->device.press_hotkey(4);
    QVERIFY(wait_until([&] { return at->combo("comboBox_KM_Control").currentIndex() + 1 == 4; }));
}

void Test_Network_On_Off::with_the_network_chosen_off_leaves_the_standing_port() {
    QVERIFY(at->open_serial());
    const Device_Watch watch(at->device.device_name());
    at->robot.expect(choose_network());
    at->robot.expect(close_dialog("Select_hardware_Dialog"));
    at->run_wizard();
    at->button("pushButton_OFF_Connection").click();
    QVERIFY(!at->is_connected());
    QCOMPARE(watch.events(), QStringList());
    QVERIFY(at->combo("comboBox_KM_Control").isEnabled());

    at->expect_network_path();
    at->run_wizard();
    QCOMPARE(watch.events(), QStringList("close"));
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_On_Off::on_after_a_half_way_wizard_closes_the_port_and_links_the_known_adapter() {
    QVERIFY(at->open_network());
    at->robot.expect(choose_serial());
    at->run_wizard();
    QVERIFY(at->wait_filled());
    at->robot.expect(choose_network());
    at->robot.expect(close_dialog("Select_hardware_Dialog"));
    at->run_wizard();
    const Device_Watch watch(at->device.device_name());
    at->button("pushButton_OFF_Connection").click();
    at->button("pushButton_ON_Connection").click();
    QCOMPARE(watch.events(), QStringList("close"));
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_On_Off::on_on_the_serial_path_arms_no_timer() {
    constexpr int longer_than_after_on = 7500;
    QVERIFY(at->open_serial());
    at->button("pushButton_OFF_Connection").click();
    Fault_Plan silence;
    silence.silence = true;
    at->device.set_faults(silence);
    at->button("pushButton_ON_Connection").click();
    Network_Fixture::settle(longer_than_after_on);
    QVERIFY(!at->is_connected());
    QVERIFY(at->window().isVisible());
}

int main(int argc, char** argv) { return run_network_test<Test_Network_On_Off>(argc, argv); }
#include "test_network_on_off.moc"
