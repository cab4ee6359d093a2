// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/link/failing_allocation.h"
#include "tests/link/open_line.h"
#include "tests/support/debug_lines.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"

#include <QTest>

#include <new>

/// What is shown and logged when a command can't be converted or written.
class Test_Write_Failures : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_write_that_throws_is_told_as_a_write_data_error();
    void the_port_serves_on_after_a_write_data_error();
    void a_write_that_fails_without_an_exception_is_not_noticed();
    void a_developer_is_told_of_a_write_that_fails();
    void a_failed_hex_step_is_told_and_sends_nothing();
    void a_failed_byte_step_is_told_and_sends_nothing();
    void a_failed_layout_command_is_told_and_sends_nothing();

private:
    /// Expects the single box of a failure, and the log entry before the box opens.
    void expect_failure(const QString& text);

    std::unique_ptr<Log_Folder> folder;
    std::unique_ptr<Modal_Robot> robot;
    QStringList logged_before_box;
};

namespace {

constexpr std::size_t command_length = 1'000'000;

/// An open port whose writes run out of memory, or only fail, while this is switched on.
class Faulty_Port : public QSerialPort {
public:
    enum class Fault { none, throws, fails };

    using QSerialPort::QSerialPort;
    Fault fault = Fault::none;

protected:
    qint64 writeData(const char* data, qint64 size) override {
        switch (fault) {
        case Fault::throws:
            throw std::bad_alloc();
        case Fault::fails:
            setErrorString("the line is gone");
            return -1;
        case Fault::none:
            break;
        }
        return QSerialPort::writeData(data, size);
    }
};

/// Replaces the line's own port by a faulty one.
Faulty_Port& make_faulty(Open_Line& line) {
    auto port = std::make_unique<Faulty_Port>(line.port_name());
    Faulty_Port& faulty = *port;
    line.devices.get_serial_port()->close();
    faulty.open(QIODevice::ReadWrite);
    line.devices.use_port(std::move(port));
    return faulty;
}

} // namespace

void Test_Write_Failures::init() {
    folder = std::make_unique<Log_Folder>();
    robot = std::make_unique<Modal_Robot>();
    logged_before_box.clear();
    QCOMPARE(open_log(), 1);
}

void Test_Write_Failures::cleanup() {
    close_log();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
    folder.reset();
}

void Test_Write_Failures::expect_failure(const QString& text) {
    robot->expect({.class_name = "QMessageBox",
                   .title = "Information",
                   .text = text,
                   .icon = QMessageBox::Warning,
                   .buttons = QStringList{"OK"},
                   .action = [this](QWidget& box) {
                       logged_before_box = folder->entries();
                       return press_button("OK")(box);
                   }});
}

void Test_Write_Failures::a_write_that_throws_is_told_as_a_write_data_error() {
    Open_Line line;
    make_faulty(line).fault = Faulty_Port::Fault::throws;
    expect_failure("Write data error");
    line.writer.writeCommand(std::string("//c3"));
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(logged_before_box, QStringList{"Write data error"});
    QCOMPARE(folder->entries(), QStringList{"Write data error"});
    QCOMPARE(line.received(), "");
}

void Test_Write_Failures::the_port_serves_on_after_a_write_data_error() {
    Open_Line line;
    Faulty_Port& port = make_faulty(line);
    port.fault = Faulty_Port::Fault::throws;
    expect_failure("Write data error");
    line.writer.send_information_command();
    QVERIFY(line.state.info_report_pending);
    QCOMPARE(line.devices.get_port_open_count(), 1);
    port.fault = Faulty_Port::Fault::none;
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "//c3\r");
}

void Test_Write_Failures::a_write_that_fails_without_an_exception_is_not_noticed() {
    Open_Line line;
    make_faulty(line).fault = Faulty_Port::Fault::fails;
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "");
    QCOMPARE(folder->entries(), QStringList());
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(line.devices.get_port_open_count(), 1);
}

void Test_Write_Failures::a_developer_is_told_of_a_write_that_fails() {
    Open_Line line;
    make_faulty(line).fault = Faulty_Port::Fault::fails;
    const Debug_Lines debug_lines;
    QTest::ignoreMessage(QtDebugMsg, "not sent: \"the line is gone\"");
    line.writer.writeCommand(std::string("//c3"));
}

void Test_Write_Failures::a_failed_hex_step_is_told_and_sends_nothing() {
    Open_Line line;
    std::string command;
    command.reserve(command_length + 1);
    command.assign(command_length, 'x');
    expect_failure("Hex converting error");
    {
        const Failing_Allocation no_memory(command_length);
        line.writer.writeCommand(command);
    }
    // Not a byte of it was sent, and no second message was shown.
    QCOMPARE(folder->entries(), QStringList{"Hex converting error"});
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "//c3\r");
}

void Test_Write_Failures::a_failed_byte_step_is_told_and_sends_nothing() {
    Open_Line line;
    std::string command(command_length, 'x');
    command.resize(command.capacity(), 'x');
    expect_failure("Bytes converting error");
    {
        const Failing_Allocation no_memory(command_length);
        line.writer.writeCommand(command);
    }
    QCOMPARE(folder->entries(), QStringList{"Bytes converting error"});
    line.writer.writeCommand(std::string("//c3"));
    QCOMPARE(line.received(), "//c3\r");
}

void Test_Write_Failures::a_failed_layout_command_is_told_and_sends_nothing() {
    Open_Line line;
    QString command(command_length, 'x');
    expect_failure("Bytes converting error");
    {
        const Failing_Allocation no_memory(command_length);
        line.writer.write_unguarded(command);
    }
    QCOMPARE(folder->entries(), QStringList{"Bytes converting error"});
    QCOMPARE(line.received(), "");
}

QTEST_MAIN(Test_Write_Failures)

#include "test_write_failures.moc"
