// SPDX-License-Identifier: MIT

#include "sim/simulator_console.h"
#include "sim/state_file.h"
#include "tests/support/hang_up.h"
#include "tests/support/wait_until.h"

#include <QSerialPort>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

/// The commands at the prompt of halvern-sim.
class Test_Simulator_Console : public QObject {
    Q_OBJECT

private slots:
    void each_unit_is_introduced_with_model_and_port();
    void a_command_is_printed_with_time_and_unit();
    void bytes_that_cannot_be_read_are_printed_as_numbers();
    void lines_act_on_the_first_unit_or_on_the_numbered_one();
    void channel_lines_send_their_notice_data();
    void channel_lines_send_their_notice();
    void send_sends_the_line();
    void faults_are_added_and_taken_away();
    void report_prints_the_unit_s_settings();
    void vanish_takes_the_unit_off_the_line();
    void a_unit_vanishes_by_itself_after_its_first_command();
    void settings_are_kept_in_the_state_file();
    void quit_asks_for_the_end();
    void help_and_mistakes_are_answered_data();
    void help_and_mistakes_are_answered();
    void an_empty_line_does_nothing();
};

namespace {

/// A console whose output is collected, and the tool's end of its last unit's line.
class Console_And_Reader {
public:
    explicit Console_And_Reader(const Simulator_Options& options = {})
        : console(options, [this](const QString& line) { lines.append(line); }),
          port(console.device_names().last().mid(QString("/dev/").size())) {
        QObject::connect(&port, &QSerialPort::readyRead, &port,
                         [this] { received += port.readAll(); });
        is_open = port.open(QIODevice::ReadWrite);
    }

    bool answers(const QByteArray& command, const QByteArray& answer) {
        received.clear();
        port.write(command + "\r");
        return wait_until([&] { return received == answer; });
    }

    QStringList lines;
    Simulator_Console console;
    QSerialPort port;
    QByteArray received;
    bool is_open = false;
};

Simulator_Options with_units(int units) {
    Simulator_Options options;
    options.units = units;
    return options;
}

} // namespace

void Test_Simulator_Console::each_unit_is_introduced_with_model_and_port() {
    Simulator_Options options = with_units(2);
    options.model = Switch_Model::plus;
    Console_And_Reader bench(options);
    bench.console.introduce_units();
    const QStringList names = bench.console.device_names();
    QCOMPARE(bench.lines,
             QStringList({"Unit 1 (plus): " + names[0], "Unit 2 (plus): " + names[1]}));
}

void Test_Simulator_Console::a_command_is_printed_with_time_and_unit() {
    Console_And_Reader bench(with_units(2));
    QVERIFY(bench.is_open);
    QVERIFY(bench.answers("//c2", "**C 2\n"));
    static const QRegularExpression form("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3}  unit 2  //c2$");
    QCOMPARE(bench.lines.size(), 1);
    QVERIFY2(form.match(bench.lines[0]).hasMatch(), qPrintable(bench.lines[0]));
}

void Test_Simulator_Console::bytes_that_cannot_be_read_are_printed_as_numbers() {
    Console_And_Reader bench;
    QVERIFY(bench.answers("a\x1b\xC3", "Not understood.\n"));
    QVERIFY2(bench.lines[0].endsWith("  a\\x1b\\xc3"), qPrintable(bench.lines[0]));
}

void Test_Simulator_Console::lines_act_on_the_first_unit_or_on_the_numbered_one() {
    Console_And_Reader bench(with_units(2));
    bench.console.carry_out("send first");
    bench.console.carry_out("  #2 send second");
    QVERIFY(wait_until([&] { return bench.received == "second\n"; }));
    bench.console.carry_out("#3 send third");
    bench.console.carry_out("#0 send third");
    QCOMPARE(bench.lines, QStringList({"This unit does not exist.", "This unit does not exist."}));
}

void Test_Simulator_Console::channel_lines_send_their_notice_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("notice");
    QTest::newRow("both") << "both 2" << QByteArray("**M 2\n");
    QTest::newRow("km") << "km 3" << QByteArray("**C 3\n");
    QTest::newRow("usb") << "usb 4" << QByteArray("**U 4\n");
}

void Test_Simulator_Console::channel_lines_send_their_notice() {
    QFETCH(QString, line);
    QFETCH(QByteArray, notice);
    Console_And_Reader bench;
    bench.console.carry_out(line);
    QVERIFY(wait_until([&] { return bench.received == notice; }));
    QCOMPARE(bench.lines, QStringList());
}

void Test_Simulator_Console::send_sends_the_line() {
    Console_And_Reader bench;
    bench.console.carry_out("send **A 1 3");
    QVERIFY(wait_until([&] { return bench.received == "**A 1 3\n"; }));
}

void Test_Simulator_Console::faults_are_added_and_taken_away() {
    Console_And_Reader bench;
    bench.console.carry_out("fault crlf");
    bench.console.carry_out("fault missing C 3");
    QVERIFY(bench.answers("//c2", "**C 2\r\n"));
    QVERIFY(bench.answers("//c3\r//u4", "**U 4\r\n"));
    bench.console.carry_out("fault none");
    QVERIFY(bench.answers("//c3", "**C 3\n"));
}

void Test_Simulator_Console::report_prints_the_unit_s_settings() {
    Simulator_Options options;
    options.model = Switch_Model::pro;
    Console_And_Reader bench(options);
    bench.console.carry_out("km 3");
    bench.console.carry_out("report");
    QVERIFY(bench.lines.join('\n').contains("Current KM Control: 3\n"));
    QVERIFY(bench.lines.join('\n').endsWith("**A 0"));
}

void Test_Simulator_Console::vanish_takes_the_unit_off_the_line() {
    Console_And_Reader bench;
    bench.console.carry_out("vanish");
    QCOMPARE(bench.lines, QStringList("Unit 1 has disconnected."));
    QVERIFY(wait_until([&] { return is_hung_up(bench.port); }));
}

void Test_Simulator_Console::a_unit_vanishes_by_itself_after_its_first_command() {
    Simulator_Options options;
    options.vanish_after = std::chrono::milliseconds(30);
    Console_And_Reader bench(options);
    QVERIFY(bench.answers("//c2", "**C 2\n"));
    QVERIFY(wait_until([&] { return bench.lines.contains("Unit 1 has disconnected."); }));
    QVERIFY(wait_until([&] { return is_hung_up(bench.port); }));
}

void Test_Simulator_Console::settings_are_kept_in_the_state_file() {
    const QTemporaryDir folder;
    Simulator_Options options = with_units(2);
    options.state_file = folder.filePath("state.txt");
    {
        Console_And_Reader bench(options);
        QVERIFY(bench.answers("//D2", "Done.\n"));
        bench.console.carry_out("usb 4");
    }
    Console_And_Reader bench(options);
    bench.console.carry_out("#2 report");
    QVERIFY(bench.lines.join('\n').contains("KM Port Limit: 2\n"));
    QCOMPARE(read_state_file(options.state_file).at(0).usb_channel, 4);
}

void Test_Simulator_Console::quit_asks_for_the_end() {
    Console_And_Reader bench;
    QSignalSpy quitting(&bench.console, &Simulator_Console::quit_wanted);
    bench.console.carry_out("quit");
    QCOMPARE(quitting.size(), 1);
}

void Test_Simulator_Console::help_and_mistakes_are_answered_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    QTest::newRow("help") << "help"
                          << "fault NAME";
    QTest::newRow("unknown") << "dance"
                             << "Unknown command: dance";
    QTest::newRow("channel") << "km 5"
                             << "from 1 to 4";
    QTest::newRow("no channel") << "both"
                                << "from 1 to 4";
    QTest::newRow("fault") << "fault gravity"
                           << "delay MS";
}

void Test_Simulator_Console::help_and_mistakes_are_answered() {
    QFETCH(QString, line);
    QFETCH(QString, answer);
    Console_And_Reader bench;
    bench.console.carry_out(line);
    QCOMPARE(bench.lines.size(), 1);
    QVERIFY2(bench.lines[0].contains(answer), qPrintable(bench.lines[0]));
}

void Test_Simulator_Console::an_empty_line_does_nothing() {
    Console_And_Reader bench;
    bench.console.carry_out("");
    bench.console.carry_out("   ");
    QCOMPARE(bench.lines, QStringList());
}

QTEST_GUILESS_MAIN(Test_Simulator_Console)

#include "test_simulator_console.moc"
