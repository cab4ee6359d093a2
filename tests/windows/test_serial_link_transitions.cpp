// SPDX-License-Identifier: MIT

#include "tests/support/device_watch.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"
#include "tests/windows/link_snapshot.h"

#include <QTest>

/// The transitions between the states of the Lite's link, and what the Lite sends and shows
/// meanwhile. The switch is silent in most of these: the tests send its lines.
class Test_Serial_Link_Transitions : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void on_opens_a_closed_port_and_stays_red_until_the_answer();
    void on_while_open_closes_and_reopens();
    void on_takes_the_old_custom_names_out();
    void another_port_is_opened_from_closed();
    void another_port_while_connected_drops_to_red_until_its_switch_answers();
    void another_port_before_any_answer_is_just_opened();
    void off_before_any_answer_closes_the_port_and_changes_nothing_shown();
    void off_after_refresh_and_before_the_answer_leaves_the_green_side();
    void a_refresh_leaves_the_green_side_and_the_next_marker_runs_it_again();
    void a_cancelled_load_counts_as_a_refresh();
    void off_without_a_port_does_nothing();
    void the_window_closes_after_off();
    void off_during_the_wait_lets_the_report_be_read();

private:
    QPushButton& on() const { return lite->button("pushButton_ON_Connection"); }
    QPushButton& off() const { return lite->button("pushButton_OFF_Connection"); }
    QComboBox& port_list() const { return lite->combo("comboBox_SelectPort"); }

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

void be_healthy(Simulated_Switch& device) { device.set_faults(Fault_Plan()); }

} // namespace

void Test_Serial_Link_Transitions::initTestCase() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void Test_Serial_Link_Transitions::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    be_silent(lite->device);
}

void Test_Serial_Link_Transitions::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Serial_Link_Transitions::on_opens_a_closed_port_and_stays_red_until_the_answer() {
    be_healthy(lite->device);
    QVERIFY(lite->open_filled());
    be_silent(lite->device);
    off().click();
    const Device_Watch watch(lite->device.device_name());
    on().click();
    QCOMPARE(watch.events(), QStringList{"open"});
    QCOMPARE(lite->commands(), question_list);
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    QVERIFY(lite->say("KM\n"));
    QCOMPARE(shown_link_state(*lite), shows_connected);
}

void Test_Serial_Link_Transitions::on_while_open_closes_and_reopens() {
    lite->open();
    QCOMPARE(lite->commands(), question_list);
    const Device_Watch watch(lite->device.device_name());
    on().click();
    QCOMPARE(watch.events(), QStringList({"close", "open"}));
    QCOMPARE(lite->commands(), question_list);
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
}

void Test_Serial_Link_Transitions::on_takes_the_old_custom_names_out() {
    be_healthy(lite->device);
    QVERIFY(lite->open_filled());
    off().click();
    QVERIFY(lite->is_filled());
    on().click();
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(lite->resolution(channel).count(), 9);
    }
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->commands(), question_list);
}

void Test_Serial_Link_Transitions::another_port_is_opened_from_closed() {
    Simulated_Switch second;
    be_silent(second);
    lite->ports.append(second.device_name());
    be_healthy(lite->device);
    QVERIFY(lite->open_filled());
    off().click();
    port_list().setCurrentIndex(1);
    QVERIFY(wait_until([&] { return second.received_commands() == question_list; }));
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    second.send("KM\n");
    QVERIFY(lite->wait_connected());
    QCOMPARE(shown_link_state(*lite), shows_connected);
}

void Test_Serial_Link_Transitions::
    another_port_while_connected_drops_to_red_until_its_switch_answers() {
    be_healthy(lite->device);
    Simulated_Switch second;
    be_silent(second);
    lite->ports.append(second.device_name());
    QVERIFY(lite->open_filled());
    const Device_Watch watch(lite->device.device_name());

    port_list().setCurrentIndex(1);
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    QCOMPARE(watch.events(), QStringList{"close"});
    QCOMPARE(lite->resolution(1).count(), 9);
    QVERIFY(wait_until([&] { return second.received_commands() == question_list; }));
    // It does not answer with a complete report, which is noticed when the wait is over.
    robot->expect({.class_name = "QMessageBox", .text = "Setting data from TQL error"});
    lite->device.send("//RL KM\n");
    second.send("hello\n");
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("hello\n"); }));
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    second.send("//RL\n");
    QVERIFY(lite->wait_connected());
    QCOMPARE(shown_link_state(*lite), shows_connected);
    QCOMPARE(lite->device.received_commands(), QByteArrayList());
    QVERIFY(wait_until([&] { return robot->done(); }));
}

void Test_Serial_Link_Transitions::another_port_before_any_answer_is_just_opened() {
    Simulated_Switch second;
    be_silent(second);
    lite->ports.append(second.device_name());
    lite->open();
    port_list().setCurrentIndex(1);
    QVERIFY(wait_until([&] { return second.received_commands() == question_list; }));
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
}

void Test_Serial_Link_Transitions::
    off_before_any_answer_closes_the_port_and_changes_nothing_shown() {
    lite->open();
    QCOMPARE(lite->commands(), question_list);
    const Device_Watch watch(lite->device.device_name());
    QVERIFY(!off().isEnabled());
    QVERIFY(lite->run_slot("on_pushButton_OFF_Connection_clicked"));
    QCOMPARE(watch.events(), QStringList{"close"});
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    on().click();
    QCOMPARE(lite->commands(), question_list);
}

void Test_Serial_Link_Transitions::off_after_refresh_and_before_the_answer_leaves_the_green_side() {
    be_healthy(lite->device);
    Simulated_Switch second;
    be_silent(second);
    lite->ports.append(second.device_name());
    QVERIFY(lite->open_filled());
    be_silent(lite->device);
    const Device_Watch watch(lite->device.device_name());
    lite->button("pushButton_Refresh").click();
    off().click();
    QCOMPARE(watch.events(), QStringList{"close"});
    QVERIFY(lite->is_connected());
    QVERIFY(!on().isEnabled());
    QVERIFY(off().isEnabled());
    QVERIFY(lite->combo("comboBox_KM_Control").isEnabled());
    // What the enabled widgets send now is dropped.
    lite->combo("comboBox_KM_Control").setCurrentIndex(2);
    lite->button("pushButton_Soft_Reset").click();
    off().click();
    QVERIFY(lite->is_connected());
    // Choosing a port leaves this state.
    port_list().setCurrentIndex(1);
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    QVERIFY(wait_until([&] { return second.received_commands() == question_list; }));
    port_list().setCurrentIndex(0);
    QCOMPARE(lite->commands(), question_list);
}

void Test_Serial_Link_Transitions::
    a_refresh_leaves_the_green_side_and_the_next_marker_runs_it_again() {
    be_healthy(lite->device);
    QVERIFY(lite->open_filled());
    QVERIFY(!lite->button("pushButton_ON_Beep").isEnabled());
    be_silent(lite->device);
    QVERIFY(lite->run_slot("refresh_UI"));
    QCOMPARE(lite->commands(), question_list);
    QVERIFY(lite->is_connected());
    QVERIFY(lite->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(!lite->button("pushButton_ON_Beep").isEnabled());
    robot->expect({.class_name = "QMessageBox", .text = "Setting data from TQL error"});
    QVERIFY(lite->say("KM\n"));
    QCOMPARE(shown_link_state(*lite), shows_connected);
    QVERIFY(wait_until([&] { return robot->done(); }));
}

void Test_Serial_Link_Transitions::a_cancelled_load_counts_as_a_refresh() {
    be_healthy(lite->device);
    QVERIFY(lite->open_filled());
    be_silent(lite->device);
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    lite->button("pushButton_Load_Settings_File").click();
    QCOMPARE(lite->commands(), question_list);
    QVERIFY(lite->is_connected());
    off().click();
    QVERIFY(lite->is_connected());
}

void Test_Serial_Link_Transitions::off_without_a_port_does_nothing() {
    lite->open();
    for (int times = 0; times < 3; ++times) {
        QVERIFY(lite->run_slot("on_pushButton_OFF_Connection_clicked"));
        QCOMPARE(shown_link_state(*lite), shows_disconnected);
    }
    on().click();
    QCOMPARE(lite->commands(), question_list);
    QVERIFY(lite->say("//RL\n"));
    QCOMPARE(shown_link_state(*lite), shows_connected);
}

void Test_Serial_Link_Transitions::the_window_closes_after_off() {
    lite->open();
    QVERIFY(lite->say("//RL\n"));
    off().click();
    const Device_Watch watch(lite->device.device_name());
    QVERIFY(lite->window().close());
    lite->close();
    QCOMPARE(watch.events(), QStringList());
}

void Test_Serial_Link_Transitions::off_during_the_wait_lets_the_report_be_read() {
    be_healthy(lite->device);
    Switch_State state;
    state.hotkey_trigger = "Caps Lock";
    state.usb_channel = 3;
    lite->device.unit().set_state(state);
    lite->open();
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("FF04B04\n"); }));
    QVERIFY(!lite->is_filled());
    off().click();
    QCOMPARE(shown_link_state(*lite), shows_disconnected);
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "Caps Lock");
    QCOMPARE(lite->combo("comboBox_USB_Control").currentIndex(), 2);
    QVERIFY(!lite->is_connected());
}

QTEST_MAIN(Test_Serial_Link_Transitions)

#include "test_serial_link_transitions.moc"
