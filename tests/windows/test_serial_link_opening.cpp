// SPDX-License-Identifier: MIT

#include "sim/port_list.h"
#include "sim/switch_report.h"
#include "tests/support/device_watch.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/program_run.h"
#include "tests/support/wait_until.h"

#include <QFile>
#include <QSerialPort>
#include <QTest>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

/// How the Lite finds, opens and replaces its serial port, and what it sends first.
class Test_Serial_Link_Opening : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_start_says_the_three_questions_once_as_fifteen_bytes();
    void the_questions_do_not_wait_for_answers();
    void the_first_port_is_opened_twice_while_the_window_is_made();
    void a_later_opening_replaces_the_port_once();
    void the_line_is_set_to_115200_baud_one_stop_bit_and_no_flow_control();
    void the_ports_are_listed_in_order_and_the_first_is_chosen();
    void the_list_of_ports_is_not_read_again();
    void every_chunk_on_the_first_port_is_handled_twice();
    void every_chunk_on_a_port_opened_later_is_handled_once();
    void a_listed_port_that_does_not_exist_fails_in_silence();
    void a_busy_port_fails_in_silence_and_opens_once_it_is_free();
    void a_failed_opening_by_the_port_list_fails_in_silence();
    void closing_the_window_closes_the_port();
    void a_machine_without_a_port_ends_the_lite_with_status_one_after_one_warning();

private:
    QString shown_state() const;

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

const QByteArray questions("//rl\r//??\r//BP\r");
const QString no_such_port = "/dev/pts/no_such_port";

/// A complete report after padding.
QByteArray report_of_995_characters() {
    const Switch_State state;
    const QByteArray report =
        status_report(state) + information_report(state) + layout_report(state);
    return report.rightJustified(995, '.');
}

termios line_setting(const QString& device_name, int& terminal) {
    terminal = ::open(QFile::encodeName(device_name).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
    termios setting = {};
    if (terminal < 0 || tcgetattr(terminal, &setting) != 0) {
        qFatal("Cannot read the line setting of %s", qPrintable(device_name));
    }
    return setting;
}

} // namespace

void Test_Serial_Link_Opening::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
}

void Test_Serial_Link_Opening::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

QString Test_Serial_Link_Opening::shown_state() const {
    const auto word = [this](const char* name) {
        return lite->button(name).isEnabled() ? "on" : "off";
    };
    return QString("%1, ON %2, OFF %3, Refresh %4")
        .arg(lite->is_connected() ? "green" : "red", word("pushButton_ON_Connection"),
             word("pushButton_OFF_Connection"), word("pushButton_Refresh"));
}

void Test_Serial_Link_Opening::a_start_says_the_three_questions_once_as_fifteen_bytes() {
    lite->open();
    QVERIFY(wait_until([&] { return lite->device.received_bytes().size() >= questions.size(); }));
    QCOMPARE(lite->device.received_bytes().toHex(' '),
             "2f 2f 72 6c 0d 2f 2f 3f 3f 0d 2f 2f 42 50 0d");
    // The bytes of the first opening were dropped with its port object, and none come later.
    QCOMPARE(lite->commands(), question_list);
}

void Test_Serial_Link_Opening::the_questions_do_not_wait_for_answers() {
    be_silent(lite->device);
    lite->open();
    QCOMPARE(lite->commands(), question_list);
    QCOMPARE(lite->terminal_text(), "");
}

void Test_Serial_Link_Opening::the_first_port_is_opened_twice_while_the_window_is_made() {
    const Device_Watch watch(lite->device.device_name());
    lite->open();
    QCOMPARE(watch.events(), QStringList({"open", "close", "open"}));
}

void Test_Serial_Link_Opening::a_later_opening_replaces_the_port_once() {
    be_silent(lite->device);
    Simulated_Switch second;
    lite->ports.append(second.device_name());
    lite->open();
    const Device_Watch first_watch(lite->device.device_name());
    const Device_Watch second_watch(second.device_name());

    lite->button("pushButton_ON_Connection").click();
    QCOMPARE(first_watch.events(), QStringList({"close", "open"}));
    lite->combo("comboBox_SelectPort").setCurrentIndex(1);
    QCOMPARE(first_watch.events(), QStringList{"close"});
    QCOMPARE(second_watch.events(), QStringList{"open"});
    QVERIFY(wait_until([&] { return second.received_commands().size() >= 3; }));
    QCOMPARE(second.received_bytes(), questions);
}

void Test_Serial_Link_Opening::the_line_is_set_to_115200_baud_one_stop_bit_and_no_flow_control() {
    // A pseudo-terminal always has 8 data bits and no parity; it stores the other settings.
    int terminal = -1;
    termios setting = line_setting(lite->device.device_name(), terminal);
    setting.c_cflag |= CSTOPB | CRTSCTS;
    setting.c_iflag |= IXON | IXOFF;
    cfsetspeed(&setting, B9600);
    QCOMPARE(tcsetattr(terminal, TCSANOW, &setting), 0);
    QCOMPARE(tcgetattr(terminal, &setting), 0);
    QVERIFY((setting.c_cflag & CSTOPB) != 0 && (setting.c_cflag & CRTSCTS) != 0);

    lite->open();
    QCOMPARE(tcgetattr(terminal, &setting), 0);
    ::close(terminal);
    QCOMPARE(cfgetospeed(&setting), speed_t{B115200});
    QCOMPARE(cfgetispeed(&setting), speed_t{B115200});
    QCOMPARE(setting.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), tcflag_t{CS8});
    QCOMPARE(setting.c_iflag & (IXON | IXOFF | IXANY), tcflag_t{0});
}

void Test_Serial_Link_Opening::the_ports_are_listed_in_order_and_the_first_is_chosen() {
    Simulated_Switch second;
    lite->ports = {second.device_name(), no_such_port, lite->device.device_name()};
    lite->open();
    const QComboBox& list = lite->combo("comboBox_SelectPort");
    QCOMPARE(list.count(), 3);
    QCOMPARE(list.itemText(0), second.port_name());
    QCOMPARE(list.itemText(1), "pts/no_such_port");
    QCOMPARE(list.itemText(2), lite->device.port_name());
    QCOMPARE(list.currentIndex(), 0);
    QVERIFY(wait_until([&] { return second.received_bytes() == questions; }));
    QVERIFY(lite->wait_connected());
    QCOMPARE(lite->device.received_bytes(), QByteArray());
}

void Test_Serial_Link_Opening::the_list_of_ports_is_not_read_again() {
    QVERIFY(lite->open_filled());
    const Simulated_Switch plugged_in_later;
    list_ports({plugged_in_later.device_name(), lite->device.device_name()});
    lite->button("pushButton_OFF_Connection").click();
    lite->button("pushButton_ON_Connection").click();
    const QComboBox& list = lite->combo("comboBox_SelectPort");
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.currentText(), lite->device.port_name());
}

// The buffer contains 1005 characters after the last chunk. Whatever comes next empties it first,
// and on a port with two connections that is the same chunk's second, empty run.

void Test_Serial_Link_Opening::every_chunk_on_the_first_port_is_handled_twice() {
    be_silent(lite->device);
    lite->open();
    QVERIFY(lite->say(report_of_995_characters()));
    robot->expect({.class_name = "QMessageBox", .text = "Setting data from TQL error"});
    QVERIFY(lite->say("the end..\n"));
    QVERIFY(wait_until([&] { return robot->done() && robot->snapshots().size() == 1; }));
    QVERIFY(!lite->is_filled());
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "");
}

void Test_Serial_Link_Opening::every_chunk_on_a_port_opened_later_is_handled_once() {
    be_silent(lite->device);
    lite->open();
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->say(report_of_995_characters()));
    QVERIFY(lite->say("the end..\n"));
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "Left Ctrl");
}

void Test_Serial_Link_Opening::a_listed_port_that_does_not_exist_fails_in_silence() {
    lite->ports = {no_such_port, lite->device.device_name()};
    lite->open();
    QCOMPARE(shown_state(), "red, ON on, OFF off, Refresh off");
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->run_slot("refresh_UI"));
    lite->window().writeCommand(std::string("//R"));
    QCOMPARE(shown_state(), "red, ON on, OFF off, Refresh off");
    // The other port exists all the time.
    lite->combo("comboBox_SelectPort").setCurrentIndex(1);
    QVERIFY(lite->wait_connected());
    QCOMPARE(lite->device.received_bytes(), questions);
}

void Test_Serial_Link_Opening::a_busy_port_fails_in_silence_and_opens_once_it_is_free() {
    QSerialPort other_program(lite->device.port_name());
    QVERIFY(other_program.open(QIODevice::ReadWrite));
    const Device_Watch watch(lite->device.device_name());
    lite->open();
    QCOMPARE(shown_state(), "red, ON on, OFF off, Refresh off");
    lite->button("pushButton_ON_Connection").click();
    QCOMPARE(watch.events(), QStringList());
    QCOMPARE(lite->device.received_bytes(), QByteArray());

    other_program.close();
    lite->button("pushButton_ON_Connection").click();
    QCOMPARE(watch.events(), QStringList({"close", "open"}));
    QVERIFY(lite->wait_connected());
    QCOMPARE(lite->device.received_bytes(), questions);
}

void Test_Serial_Link_Opening::a_failed_opening_by_the_port_list_fails_in_silence() {
    lite->ports.append(no_such_port);
    QVERIFY(lite->open_filled());
    const Device_Watch watch(lite->device.device_name());
    lite->combo("comboBox_SelectPort").setCurrentIndex(1);
    QCOMPARE(watch.events(), QStringList{"close"});
    QCOMPARE(shown_state(), "red, ON on, OFF off, Refresh off");
    lite->combo("comboBox_SelectPort").setCurrentIndex(0);
    QVERIFY(lite->wait_connected());
    QCOMPARE(lite->device.received_bytes(), questions);
}

void Test_Serial_Link_Opening::closing_the_window_closes_the_port() {
    QVERIFY(lite->open_connected());
    const Device_Watch watch(lite->device.device_name());
    lite->close();
    QCOMPARE(watch.events(), QStringList{"close"});
}

void Test_Serial_Link_Opening::
    a_machine_without_a_port_ends_the_lite_with_status_one_after_one_warning() {
    // The program has the simulated list linked in.
    Program_Run run({.program = LITE_ALONE_PROGRAM, .environment = {{"LD_PRELOAD", ""}}});
    QVERIFY(run.started());
    QVERIFY(run.wait_for_end(30'000));
    QCOMPARE(run.exit_status(), 1);
    QCOMPARE(run.output(), "QMessageBox , title \" \", text \"No available port\", icon 2, "
                           "buttons OK\nalone\n");
}

QTEST_MAIN(Test_Serial_Link_Opening)

#include "test_serial_link_opening.moc"
