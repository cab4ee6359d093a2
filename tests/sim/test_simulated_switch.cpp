// SPDX-License-Identifier: MIT

#include "sim/port_list.h"
#include "sim/simulated_switch.h"
#include "sim/switch_report.h"
#include "tests/support/hang_up.h"
#include "tests/support/wait_until.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QScopeGuard>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>
#include <sys/ioctl.h>
#include <termios.h>

/// The simulated switch, connected to a real QSerialPort in the same thread.
class Test_Simulated_Switch : public QObject {
    Q_OBJECT

private slots:
    void a_listed_switch_is_opened_by_its_port_name();
    void a_command_is_answered_byte_for_byte();
    void commands_in_one_write_are_split_at_carriage_returns();
    void a_command_in_pieces_counts_when_its_carriage_return_comes();
    void all_bytes_pass_unchanged_in_both_directions();
    void nothing_is_echoed();
    void the_port_can_be_closed_and_opened_again();
    void settings_last_over_a_reopening();
    void a_claim_left_behind_by_a_killed_tool_is_dropped();
    void unasked_bytes_arrive();
    void the_hotkey_sends_the_m_notice();
    void answers_come_in_the_order_of_the_commands_and_each_after_the_delay();
    void pieces_arrive_one_at_a_time();
    void a_silent_switch_hears_but_says_nothing();
    void faults_can_be_changed_while_running();
    void a_vanished_switch_hangs_up_the_line();
    void a_disappearance_takes_the_place_of_the_answer();
    void a_vanished_switch_takes_what_it_is_told_without_harm();
    void a_line_whose_lock_file_is_still_there_is_not_taken();
    void a_megabyte_arrives_whole();
    void an_idle_switch_wakes_nobody();
    void the_record_can_be_cleared();
    void two_switches_do_not_hear_each_other();
};

namespace {

using std::chrono::milliseconds;

/// The tool's end of the line.
class Reader {
public:
    explicit Reader(const Simulated_Switch& device) : port(device.port_name()) {
        port.setBaudRate(QSerialPort::Baud115200);
        is_open = port.open(QIODevice::ReadWrite);
        QObject::connect(&port, &QSerialPort::readyRead, &port, [this] {
            chunks.append(port.readAll());
            all_text += chunks.last();
        });
    }

    const QByteArray& text() const { return all_text; }

    bool wait_for(const QByteArray& wanted) const {
        return wait_until([&] { return text().size() >= wanted.size(); }) && text() == wanted;
    }

    QSerialPort port;
    bool is_open = false;
    QByteArrayList chunks;

private:
    QByteArray all_text;
};

} // namespace

void Test_Simulated_Switch::a_listed_switch_is_opened_by_its_port_name() {
    Simulated_Switch device;
    list_ports({device.device_name()});
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    QCOMPARE(ports.size(), 1);
    QCOMPARE(ports.first().portName(), device.port_name());
    QVERIFY(device.port_name().startsWith("pts/"));

    QSerialPort port(ports.first().portName());
    QVERIFY2(port.open(QIODevice::ReadWrite), qPrintable(port.errorString()));
    list_ports({});
}

void Test_Simulated_Switch::a_command_is_answered_byte_for_byte() {
    Simulated_Switch device;
    Reader reader(device);
    QVERIFY(reader.is_open);
    reader.port.write("//rl\r");
    QVERIFY(reader.wait_for(status_report(Switch_State())));
}

void Test_Simulated_Switch::commands_in_one_write_are_split_at_carriage_returns() {
    Simulated_Switch device;
    QSignalSpy commands(&device, &Simulated_Switch::command_received);
    Reader reader(device);
    reader.port.write("//rl\r//??\r//BP\r");
    const Switch_State state;
    QVERIFY(
        reader.wait_for(status_report(state) + information_report(state) + layout_report(state)));
    QCOMPARE(device.received_commands(), QByteArrayList({"//rl", "//??", "//BP"}));
    QCOMPARE(device.received_bytes(), "//rl\r//??\r//BP\r");
    QCOMPARE(commands.size(), 3);
    QCOMPARE(commands.first().first().toByteArray(), "//rl");
}

void Test_Simulated_Switch::a_command_in_pieces_counts_when_its_carriage_return_comes() {
    Simulated_Switch device;
    Reader reader(device);
    reader.port.write("//c");
    QVERIFY(wait_until([&] { return device.received_bytes() == "//c"; }));
    QCOMPARE(device.received_commands(), QByteArrayList());
    reader.port.write("2\r");
    QVERIFY(reader.wait_for("**C 2\n"));
    QCOMPARE(device.received_commands(), QByteArrayList{"//c2"});
}

void Test_Simulated_Switch::all_bytes_pass_unchanged_in_both_directions() {
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.append(static_cast<char>(byte));
    }
    Simulated_Switch device;
    Reader reader(device);
    device.send(bytes);
    QVERIFY(reader.wait_for(bytes));
    reader.port.write(bytes);
    QVERIFY(wait_until([&] { return device.received_bytes().size() == bytes.size(); }));
    QCOMPARE(device.received_bytes(), bytes);
}

void Test_Simulated_Switch::nothing_is_echoed() {
    Simulated_Switch device;
    device.send("\r\n\x03");
    Reader reader(device);
    // Newer versions of Qt drop what arrived before they opened the line.
    device.send("end");
    QVERIFY(wait_until([&] { return reader.text().endsWith("end"); }));
    QCOMPARE(device.received_bytes(), "");
}

void Test_Simulated_Switch::the_port_can_be_closed_and_opened_again() {
    Simulated_Switch device;
    for (const char* channel : {"1", "2", "3"}) {
        Reader reader(device);
        QVERIFY2(reader.is_open, qPrintable(reader.port.errorString()));
        reader.port.write(QByteArray("//c") + channel + "\r");
        QVERIFY(reader.wait_for(QByteArray("**C ") + channel + "\n"));
    }
    QCOMPARE(device.received_commands(), QByteArrayList({"//c1", "//c2", "//c3"}));
}

void Test_Simulated_Switch::settings_last_over_a_reopening() {
    Simulated_Switch device;
    {
        Reader reader(device);
        reader.port.write("//D2\r");
        QVERIFY(reader.wait_for(carried_out));
    }
    Reader reader(device);
    reader.port.write("//rl\r");
    QVERIFY(wait_until([&] { return reader.text().contains("KM Port Limit: 2\n"); }));
}

void Test_Simulated_Switch::a_claim_left_behind_by_a_killed_tool_is_dropped() {
    Simulated_Switch device;
    Reader reader(device);
    const int line = static_cast<int>(reader.port.handle());
    int claimed = 0;
    ioctl(line, TIOCEXCL);
    QCOMPARE(ioctl(line, TIOCGEXCL, &claimed), 0);
    QCOMPARE(claimed, 1);
    reader.port.write("//c1\r");
    QVERIFY(reader.wait_for("**C 1\n"));
    QCOMPARE(ioctl(line, TIOCGEXCL, &claimed), 0);
    QCOMPARE(claimed, 0);
}

void Test_Simulated_Switch::unasked_bytes_arrive() {
    Simulated_Switch device;
    Reader reader(device);
    device.send("**U 3\n");
    QVERIFY(reader.wait_for("**U 3\n"));
}

void Test_Simulated_Switch::the_hotkey_sends_the_m_notice() {
    Simulated_Switch device;
    Reader reader(device);
    device.press_hotkey(4);
    QVERIFY(reader.wait_for("**M 4\n"));
    QCOMPARE(device.unit().state().usb_channel, 4);
}

void Test_Simulated_Switch::answers_come_in_the_order_of_the_commands_and_each_after_the_delay() {
    Simulated_Switch device;
    Fault_Plan plan;
    plan.delay = milliseconds(60);
    device.set_faults(plan);
    Reader reader(device);
    QElapsedTimer clock;
    clock.start();
    reader.port.write("//c1\r//u2\r//c3\r");
    QVERIFY(reader.wait_for("**C 1\n**U 2\n**C 3\n"));
    QVERIFY2(clock.elapsed() >= 180, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(reader.chunks.size(), 3);
    QVERIFY(device.all_sent());
}

void Test_Simulated_Switch::pieces_arrive_one_at_a_time() {
    Simulated_Switch device;
    Fault_Plan plan;
    plan.chunk_size = 2;
    plan.chunk_gap = milliseconds(100);
    device.set_faults(plan);
    QSignalSpy pieces(&device, &Simulated_Switch::sent);
    Reader reader(device);
    reader.port.write("//c1\r");
    QVERIFY(reader.wait_for("**C 1\n"));
    QCOMPARE(pieces.size(), 3);
    QCOMPARE(reader.chunks, QByteArrayList({"**", "C ", "1\n"}));
}

void Test_Simulated_Switch::a_silent_switch_hears_but_says_nothing() {
    Simulated_Switch device;
    Fault_Plan plan;
    plan.silence = true;
    device.set_faults(plan);
    QSignalSpy pieces(&device, &Simulated_Switch::sent);
    Reader reader(device);
    reader.port.write("//c4\r");
    QVERIFY(wait_until([&] { return device.received_commands() == QByteArrayList{"//c4"}; }));
    QCOMPARE(pieces.size(), 0);
    QVERIFY(device.all_sent());
    QCOMPARE(device.unit().state().km_channel, 4);
}

void Test_Simulated_Switch::faults_can_be_changed_while_running() {
    Simulated_Switch device;
    Reader reader(device);
    Fault_Plan plan;
    plan.crlf = true;
    device.set_faults(plan);
    reader.port.write("//c1\r");
    QVERIFY(reader.wait_for("**C 1\r\n"));
    device.set_faults(Fault_Plan());
    reader.port.write("//c1\r");
    QVERIFY(reader.wait_for("**C 1\r\n**C 1\n"));
}

void Test_Simulated_Switch::a_vanished_switch_hangs_up_the_line() {
    Simulated_Switch device;
    QSignalSpy vanishing(&device, &Simulated_Switch::vanished);
    Reader reader(device);
    QVERIFY(!is_hung_up(reader.port));
    device.vanish();
    QVERIFY(wait_until([&] { return is_hung_up(reader.port); }));
    QCOMPARE(vanishing.size(), 1);
    QVERIFY(!device.is_on_line());
}

void Test_Simulated_Switch::a_disappearance_takes_the_place_of_the_answer() {
    Simulated_Switch device;
    Fault_Plan plan;
    plan.disappearance = true;
    device.set_faults(plan);
    Reader reader(device);
    reader.port.write("//rl\r//??\r");
    QVERIFY(wait_until([&] { return !device.is_on_line(); }));
    QVERIFY(wait_until([&] { return is_hung_up(reader.port); }));
    QCOMPARE(reader.text(), "");
}

void Test_Simulated_Switch::a_line_whose_lock_file_is_still_there_is_not_taken() {
    auto earlier = std::make_unique<Simulated_Switch>();
    const QString name = earlier->device_name();
    QFile lock_file("/var/lock/LCK.." + earlier->port_name().replace('/', '_'));
    QVERIFY(lock_file.open(QIODevice::WriteOnly));
    const auto remove_file = qScopeGuard([&] { lock_file.remove(); });
    // The system assigns the lowest free number.
    earlier.reset();
    const Simulated_Switch device;
    QVERIFY2(device.device_name() != name, qPrintable(name));
    QVERIFY(Reader(device).is_open);
}

void Test_Simulated_Switch::a_vanished_switch_takes_what_it_is_told_without_harm() {
    Simulated_Switch device;
    Fault_Plan plan;
    plan.delay = milliseconds(20);
    device.set_faults(plan);
    const QString name = device.device_name();
    QSignalSpy pieces(&device, &Simulated_Switch::sent);
    {
        Reader reader(device);
        reader.port.write("//rl\r");
        QVERIFY(wait_until([&] { return device.received_commands().size() == 1; }));
        device.vanish();
    }
    device.send("late");
    device.press_hotkey(1);
    device.vanish();
    // The pending answer must not arrive any more.
    QVERIFY(!wait_until([&] { return pieces.size() > 0; }, 60));
    QVERIFY(device.all_sent());
    QCOMPARE(device.device_name(), name);
}

void Test_Simulated_Switch::a_megabyte_arrives_whole() {
    QByteArray megabyte;
    for (int line = 0; megabyte.size() < 1'000'000; ++line) {
        megabyte += QByteArray::number(line) + "\n";
    }
    Simulated_Switch device;
    Reader reader(device);
    device.send(megabyte);
    QVERIFY(!device.all_sent());
    QVERIFY(wait_until([&] { return reader.text().size() >= megabyte.size(); }, 30'000));
    QVERIFY(reader.text() == megabyte);
    QVERIFY(device.all_sent());
}

void Test_Simulated_Switch::an_idle_switch_wakes_nobody() {
    Simulated_Switch device;
    Reader reader(device);
    reader.port.write("//c2\r");
    QVERIFY(reader.wait_for("**C 2\n"));

    int wake_ups = 0;
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this,
            [&] { ++wake_ups; });
    QEventLoop loop;
    QTimer::singleShot(100, &loop, &QEventLoop::quit);
    loop.exec();
    disconnect(QAbstractEventDispatcher::instance(), nullptr, this, nullptr);
    // The timer's own, and one for what was still due.
    QVERIFY2(wake_ups <= 4, qPrintable(QString::number(wake_ups)));
}

void Test_Simulated_Switch::the_record_can_be_cleared() {
    Simulated_Switch device;
    Reader reader(device);
    reader.port.write("//c2\r");
    QVERIFY(reader.wait_for("**C 2\n"));
    device.clear_record();
    QCOMPARE(device.received_bytes(), "");
    QCOMPARE(device.received_commands(), QByteArrayList());
    QCOMPARE(device.unit().state().km_channel, 2);
}

void Test_Simulated_Switch::two_switches_do_not_hear_each_other() {
    Simulated_Switch first;
    Simulated_Switch second;
    QVERIFY(first.device_name() != second.device_name());
    Reader reader(second);
    reader.port.write("//c3\r");
    QVERIFY(reader.wait_for("**C 3\n"));
    QCOMPARE(first.received_bytes(), "");
    QCOMPARE(first.unit().state().km_channel, 1);
}

QTEST_GUILESS_MAIN(Test_Simulated_Switch)

#include "test_simulated_switch.moc"
