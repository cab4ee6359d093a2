// SPDX-License-Identifier: MIT

#include "tests/link/open_line.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QNetworkDatagram>
#include <QTest>
#include <QUdpSocket>

#include <utility>

/// What passes the write guard, what it drops, and which device receives it.
class Test_Command_Writer : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_command_reaches_the_line_as_its_bytes_and_a_carriage_return();
    void an_empty_command_goes_out_as_a_single_carriage_return();
    void a_command_with_bytes_above_0x7f_passes_unchanged();
    void the_callers_text_gets_the_carriage_return();
    void a_text_given_away_gets_the_carriage_return_too();
    void all_forms_of_writing_a_command_behave_alike();
    void with_writing_disabled_a_command_is_dropped_in_silence();
    void without_an_open_port_a_command_is_dropped_in_silence();
    void a_dropped_command_leaves_the_callers_text_alone();
    void each_question_raises_its_flag_and_sends_its_text();
    void each_question_raises_its_flag_although_it_is_dropped();
    void the_start_commands_go_out_back_to_back();
    void a_model_with_audio_asks_for_it_last();
    void bytes_pass_the_guard_and_get_no_carriage_return();
    void bytes_go_to_the_port_whatever_the_chosen_method();
    void bytes_without_an_open_port_are_dropped_in_silence();
    void the_layout_path_passes_the_guard_and_gets_a_carriage_return();
    void commands_follow_the_chosen_method_to_the_socket();
    void an_open_socket_does_not_help_the_serial_method();
    void an_open_port_does_not_help_the_network_method();
    void a_port_that_was_closed_behind_the_counter_drops_in_silence();

private:
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

/// An adapter's end of a network link, on the loopback.
class Listening_Socket {
public:
    Listening_Socket() { socket.bind(QHostAddress::LocalHost, 0); }

    /// Connects the devices' own socket to this one.
    void connect_to(Link_Transport& devices) const {
        devices.connect_socket(QHostAddress::LocalHost, socket.localPort());
        QVERIFY(devices.wait_for_socket(3000));
    }

    /// The next datagram, or a text that no test expects if none comes.
    QByteArray next() {
        if (!wait_until([this] { return socket.hasPendingDatagrams(); })) {
            return "no datagram came";
        }
        return socket.receiveDatagram().data();
    }

    [[nodiscard]] bool has_more() const { return socket.hasPendingDatagrams(); }

private:
    QUdpSocket socket;
};

} // namespace

void Test_Command_Writer::init() { robot = std::make_unique<Modal_Robot>(); }

void Test_Command_Writer::cleanup() {
    // Nothing here shows a box.
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(windows_left(), QStringList());
}

void Test_Command_Writer::a_command_reaches_the_line_as_its_bytes_and_a_carriage_return() {
    Open_Line line;
    line.writer.writeCommand(std::string("//rl"));
    QCOMPARE(line.received().toHex(' '), "2f 2f 72 6c 0d");
}

void Test_Command_Writer::an_empty_command_goes_out_as_a_single_carriage_return() {
    Open_Line line;
    line.writer.writeCommand(std::string());
    QCOMPARE(line.received().toHex(), "0d");
}

void Test_Command_Writer::a_command_with_bytes_above_0x7f_passes_unchanged() {
    Open_Line line;
    line.writer.writeCommand(std::string("\x80\xE2\x82\xAC\xFF"));
    QCOMPARE(line.received().toHex(), "80e282acff0d");
}

void Test_Command_Writer::the_callers_text_gets_the_carriage_return() {
    Open_Line line;
    std::string command = "//c3";
    line.writer.writeCommand(command);
    QCOMPARE(command, "//c3\r");
    QCOMPARE(line.received(), "//c3\r");
}

void Test_Command_Writer::a_text_given_away_gets_the_carriage_return_too() {
    Open_Line line;
    std::string command = "//c3";
    line.writer.writeCommand(std::move(command));
    QCOMPARE(command, "//c3\r"); // NOLINT(bugprone-use-after-move)
    QCOMPARE(line.received(), "//c3\r");
    line.state.write_enabled = false;
    std::string dropped = "//c4";
    line.writer.writeCommand(std::move(dropped));
    QCOMPARE(dropped, "//c4"); // NOLINT(bugprone-use-after-move)
}

void Test_Command_Writer::all_forms_of_writing_a_command_behave_alike() {
    Open_Line line;
    std::string kept = "//u1";
    line.writer.writeCommand(kept);
    line.writer.writeCommand(std::string("//u2"));
    line.writer.writeCommand(QString::fromUtf8("//MM C1 1 2 Grün"));
    line.writer.writeCommand(std::string_view("//u4"));
    QCOMPARE(line.received(), "//u1\r//u2\r//MM C1 1 2 Gr\xC3\xBCn\r//u4\r");
}

void Test_Command_Writer::with_writing_disabled_a_command_is_dropped_in_silence() {
    Open_Line line;
    line.state.write_enabled = false;
    line.state.ui_changes_enabled = true;
    line.writer.writeCommand(std::string("//c3"));
    line.writer.writeCommand(QString("//c3"));
    QCOMPARE(line.received(), "");
    line.state.write_enabled = true;
    line.writer.writeCommand(std::string("//c2"));
    QCOMPARE(line.received(), "//c2\r");
}

void Test_Command_Writer::without_an_open_port_a_command_is_dropped_in_silence() {
    Open_Line line;
    line.devices.close_port();
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "");
}

void Test_Command_Writer::a_dropped_command_leaves_the_callers_text_alone() {
    Open_Line line;
    line.state.write_enabled = false;
    std::string command = "//c3";
    line.writer.writeCommand(command);
    QCOMPARE(command, "//c3");
}

void Test_Command_Writer::each_question_raises_its_flag_and_sends_its_text() {
    Open_Line line;
    line.writer.send_initial_command();
    QVERIFY(line.state.report_in_progress);
    QVERIFY(!line.state.info_report_pending && !line.state.layout_report_pending);
    QCOMPARE(line.received(), "//rl\r");
    line.writer.send_information_command();
    QVERIFY(line.state.info_report_pending && !line.state.layout_report_pending);
    QCOMPARE(line.received(), "//??\r");
    line.writer.send_current_layout_command();
    QVERIFY(line.state.layout_report_pending);
    QCOMPARE(line.received(), "//BP\r");
    line.writer.send_audio_query();
    QCOMPARE(line.received(), "//QA\r");
}

void Test_Command_Writer::each_question_raises_its_flag_although_it_is_dropped() {
    Open_Line line;
    line.devices.close_port();
    line.writer.send_information_command();
    QVERIFY(line.state.info_report_pending);
    line.writer.send_initial_command();
    QVERIFY(line.state.report_in_progress);
    line.writer.send_current_layout_command();
    QVERIFY(line.state.layout_report_pending);
    QCOMPARE(line.received(), "");

    Open_Line guarded;
    guarded.state.write_enabled = false;
    guarded.writer.send_start_commands();
    QVERIFY(guarded.state.info_report_pending && guarded.state.report_in_progress &&
            guarded.state.layout_report_pending);
    QCOMPARE(guarded.received(), "");
}

void Test_Command_Writer::the_start_commands_go_out_back_to_back() {
    Open_Line line;
    line.writer.send_start_commands();
    QCOMPARE(line.received(), "//rl\r//??\r//BP\r");
    QVERIFY(line.state.info_report_pending && line.state.report_in_progress &&
            line.state.layout_report_pending);
}

void Test_Command_Writer::a_model_with_audio_asks_for_it_last() {
    constexpr bool asks_for_audio = true;
    Open_Line line(asks_for_audio);
    line.writer.send_start_commands();
    QCOMPARE(line.received(), "//rl\r//??\r//BP\r//QA\r");
}

void Test_Command_Writer::bytes_pass_the_guard_and_get_no_carriage_return() {
    Open_Line line;
    line.state.write_enabled = false;
    line.writer.writeData(QByteArray("\x00\x01raw\xFF", 6));
    QCOMPARE(line.received(), QByteArray("\x00\x01raw\xFF", 6));
}

void Test_Command_Writer::bytes_go_to_the_port_whatever_the_chosen_method() {
    Open_Line line;
    Listening_Socket adapter;
    adapter.connect_to(line.devices);
    line.devices.choose(Link_Method::network);
    line.writer.writeData("raw");
    QCOMPARE(line.received(), "raw");
    // What comes next is the first to arrive.
    line.writer.writeCommand(std::string("//c4"));
    QCOMPARE(adapter.next(), "//c4\r");
    line.devices.choose(Link_Method::serial);
    line.writer.writeData("raw again");
    QCOMPARE(line.received(), "raw again");
}

void Test_Command_Writer::bytes_without_an_open_port_are_dropped_in_silence() {
    Open_Line line;
    Listening_Socket adapter;
    adapter.connect_to(line.devices);
    line.devices.choose(Link_Method::network);
    line.devices.get_serial_port()->close();
    line.writer.writeData("raw");
    QCOMPARE(line.received(), "");
    line.devices.close_port();
    line.writer.writeData("raw");
    line.writer.writeCommand(std::string("//c4"));
    QCOMPARE(adapter.next(), "//c4\r");
}

void Test_Command_Writer::the_layout_path_passes_the_guard_and_gets_a_carriage_return() {
    Open_Line line;
    line.state.write_enabled = false;
    QString command = "//FF01B01FF02B02FF03B05FF04B06";
    line.writer.write_unguarded(command);
    QCOMPARE(line.received(), "//FF01B01FF02B02FF03B05FF04B06\r");
    QCOMPARE(command, "//FF01B01FF02B02FF03B05FF04B06\r");
}

void Test_Command_Writer::commands_follow_the_chosen_method_to_the_socket() {
    Open_Line line;
    Listening_Socket adapter;
    adapter.connect_to(line.devices);
    line.devices.choose(Link_Method::network);
    line.writer.send_start_commands();
    // One datagram each, in the form of the serial line.
    QCOMPARE(adapter.next(), "//rl\r");
    QCOMPARE(adapter.next(), "//??\r");
    QCOMPARE(adapter.next(), "//BP\r");
    QVERIFY(!adapter.has_more());
    QCOMPARE(line.received(), "");
}

void Test_Command_Writer::an_open_socket_does_not_help_the_serial_method() {
    Open_Line line;
    Listening_Socket adapter;
    adapter.connect_to(line.devices);
    line.devices.close_port();
    QVERIFY(line.devices.is_open());
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "");
    // What comes next is the first to arrive.
    line.devices.choose(Link_Method::network);
    line.writer.writeCommand(std::string("//c4"));
    QCOMPARE(adapter.next(), "//c4\r");
}

void Test_Command_Writer::an_open_port_does_not_help_the_network_method() {
    Open_Line line;
    line.devices.choose(Link_Method::network);
    QVERIFY(line.devices.is_open());
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "");
}

void Test_Command_Writer::a_port_that_was_closed_behind_the_counter_drops_in_silence() {
    Open_Line line;
    line.devices.get_serial_port()->close();
    QVERIFY(line.devices.is_open());
    line.writer.writeCommand(std::string("//c3"));
    line.writer.send_start_commands();
    QCOMPARE(line.received(), "");
    QVERIFY(line.state.info_report_pending);
}

QTEST_MAIN(Test_Command_Writer)

#include "test_command_writer.moc"
