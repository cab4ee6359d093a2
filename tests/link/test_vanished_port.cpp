// SPDX-License-Identifier: MIT

#include "tests/link/failing_read.h"
#include "tests/link/open_line.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QSignalSpy>
#include <QTest>

/// A port whose other end disappears while it is open: the tool shows nothing and uses no processor
/// time.
class Test_Vanished_Port : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_vanished_end_lets_the_program_rest();
    void a_vanished_end_leaves_the_counter_as_it_was();
    void the_last_words_before_vanishing_are_still_read();
    void commands_to_a_vanished_end_are_dropped_in_silence();
    void vanishing_with_unsent_bytes_lets_it_rest_as_well();
    void a_read_that_fails_closes_the_port_and_lets_it_rest();
    void a_line_that_stands_is_not_closed();
    void a_vanished_port_is_closed_and_another_opened();

private:
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

constexpr int watched_ms = 300;
/// Waiting itself wakes the event loop about 30 times, a port that spins thousands of times.
constexpr int max_rounds = 150;

void serve_events_for_a_while() {
    (void)wait_until([] { return false; }, 50);
}

} // namespace

void Test_Vanished_Port::init() { robot = std::make_unique<Modal_Robot>(); }

void Test_Vanished_Port::cleanup() {
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(windows_left(), QStringList());
}

void Test_Vanished_Port::a_vanished_end_lets_the_program_rest() {
    Open_Line line;
    QSignalSpy ready(line.devices.get_serial_port(), &QSerialPort::readyRead);
    line.device.write("KM\n");
    QVERIFY(wait_until([&] { return ready.size() == 1; }));
    line.device.close();
    const int rounds = count_event_rounds(watched_ms);
    QVERIFY2(rounds < max_rounds, qPrintable(QString::number(rounds)));
    QCOMPARE(ready.size(), 1);
    QVERIFY(!line.devices.get_serial_port()->isOpen());
}

void Test_Vanished_Port::a_vanished_end_leaves_the_counter_as_it_was() {
    Open_Line line;
    line.state.km_connected = true;
    line.device.close();
    serve_events_for_a_while();
    QCOMPARE(line.devices.get_port_open_count(), 1);
    QVERIFY(line.devices.get_serial_port() != nullptr);
    QVERIFY(line.devices.is_open());
    QVERIFY(line.state.km_connected);
}

void Test_Vanished_Port::the_last_words_before_vanishing_are_still_read() {
    Open_Line line;
    QByteArray read;
    connect(line.devices.get_serial_port(), &QSerialPort::readyRead, this,
            [&] { read += line.devices.get_serial_port()->readAll(); });
    line.device.write("KM Port Limit: 2\n");
    QVERIFY(wait_until([&] { return read.endsWith('\n'); }));
    line.device.close();
    serve_events_for_a_while();
    QCOMPARE(read, "KM Port Limit: 2\n");
}

void Test_Vanished_Port::commands_to_a_vanished_end_are_dropped_in_silence() {
    Open_Line line;
    line.device.close();
    // At once, before the port has noticed, and when it has noticed.
    line.writer.writeCommand(std::string("//c3"));
    serve_events_for_a_while();
    line.writer.send_start_commands();
    line.writer.writeData("raw");
    serve_events_for_a_while();
    QVERIFY(line.state.info_report_pending && line.state.report_in_progress);
    QCOMPARE(line.devices.get_port_open_count(), 1);
}

void Test_Vanished_Port::vanishing_with_unsent_bytes_lets_it_rest_as_well() {
    Open_Line line;
    // More than the line can buffer while nobody reads.
    line.devices.write(QByteArray(1'000'000, 'x'));
    line.device.close();
    const int rounds = count_event_rounds(watched_ms);
    QVERIFY2(rounds < max_rounds, qPrintable(QString::number(rounds)));
}

void Test_Vanished_Port::a_read_that_fails_closes_the_port_and_lets_it_rest() {
    Open_Line line;
    const Failing_Read failing_read(static_cast<int>(line.devices.get_serial_port()->handle()));
    line.device.write("KM\n");
    QVERIFY(wait_until([&] { return !line.devices.get_serial_port()->isOpen(); }));
    QVERIFY(failing_read.count() >= 1);
    const int rounds = count_event_rounds(watched_ms);
    QVERIFY2(rounds < max_rounds, qPrintable(QString::number(rounds)));
    QCOMPARE(line.devices.get_port_open_count(), 1);
}

void Test_Vanished_Port::a_line_that_stands_is_not_closed() {
    Open_Line line;
    QSignalSpy ready(line.devices.get_serial_port(), &QSerialPort::readyRead);
    line.device.write("KM\n");
    QVERIFY(wait_until([&] { return ready.size() == 1; }));
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "//c3\r");
    QVERIFY(line.devices.get_serial_port()->isOpen());
}

void Test_Vanished_Port::a_vanished_port_is_closed_and_another_opened() {
    Open_Line line;
    line.device.close();
    serve_events_for_a_while();
    line.devices.close_port();
    QCOMPARE(line.devices.get_port_open_count(), 0);

    Pty_Port other;
    QSignalSpy received(&other, &Pty_Port::received);
    line.devices.open_port(other.device_name());
    QCOMPARE(line.devices.get_port_open_count(), 1);
    line.writer.writeCommand(std::string("//c3"));
    QVERIFY(wait_until([&] { return received.size() == 1; }));
    QCOMPARE(received.first().first().toByteArray(), "//c3\r");
}

QTEST_MAIN(Test_Vanished_Port)

#include "test_vanished_port.moc"
