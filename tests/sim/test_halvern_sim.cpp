// SPDX-License-Identifier: MIT

#include "tests/support/program_run.h"
#include "tests/support/wait_until.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QSerialPort>
#include <QTest>

#include <csignal>

/// halvern-sim as a user runs it: as a separate program.
class Test_Halvern_Sim : public QObject {
    Q_OBJECT

private slots:
    void the_help_explains_itself();
    void a_mistake_on_the_command_line_gives_status_2();
    void the_first_lines_name_the_ports_and_tell_how_to_start();
    void a_session_answers_prints_and_takes_lines();
    void it_ends_with_its_input_if_asked_to();
    void it_outlives_its_input_otherwise();
    void sigint_and_sigterm_end_it_with_status_0_data();
    void sigint_and_sigterm_end_it_with_status_0();
    void a_program_sees_the_simulated_ports();
    void the_status_of_the_program_is_passed_on();
    void a_signal_that_ends_the_program_becomes_128_and_more();
    void a_program_that_cannot_be_started_gives_127();
    void sigterm_ends_the_program_as_well();
};

namespace {

QString list_ports_program() {
    return QDir(QCoreApplication::applicationDirPath()).filePath("list_ports");
}

/// The device names in the introduction, in order.
QStringList introduced_ports(const QByteArray& output) {
    static const QRegularExpression introduction("^Unit \\d+ \\(\\w+\\): (\\S+)$",
                                                 QRegularExpression::MultilineOption);
    QStringList names;
    auto matches = introduction.globalMatch(QString::fromLocal8Bit(output));
    while (matches.hasNext()) {
        names.append(matches.next().captured(1));
    }
    return names;
}

bool wait_for_prompt(Program_Run& sim) {
    return wait_until([&] { return sim.output().contains("Lines of input"); });
}

void send_signal(Program_Run& run, int number) {
    ::kill(static_cast<pid_t>(run.child().processId()), number);
}

} // namespace

void Test_Halvern_Sim::the_help_explains_itself() {
    Program_Run sim({.program = halvern_sim_program(), .arguments = {"--help"}});
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 0);
    for (const char* part : {"Usage: ", "INPUT", "ENVIRONMENT", "HALVERN_SIM_PORTS", "LD_PRELOAD",
                             "EXIT STATUS", "EXAMPLES", "--model", "--vanish-after", "both N"}) {
        QVERIFY2(sim.output().contains(part), part);
    }
}

void Test_Halvern_Sim::a_mistake_on_the_command_line_gives_status_2() {
    Program_Run sim({.program = halvern_sim_program(), .arguments = {"--units", "none"}});
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 2);
    QVERIFY(sim.errors().contains("--help"));
    QCOMPARE(sim.output(), "");
}

void Test_Halvern_Sim::the_first_lines_name_the_ports_and_tell_how_to_start() {
    Program_Run sim(
        {.program = halvern_sim_program(), .arguments = {"--units", "2", "--model", "pro"}});
    QVERIFY(wait_for_prompt(sim));
    const QStringList ports = introduced_ports(sim.output());
    QCOMPARE(ports.size(), 2);
    QVERIFY(sim.output().startsWith("Unit 1 (pro): /dev/pts/"));
    const QString variable = "HALVERN_SIM_PORTS=" + ports.join(':');
    QVERIFY(sim.output().contains(variable.toUtf8() + " LD_PRELOAD=/"));
}

void Test_Halvern_Sim::a_session_answers_prints_and_takes_lines() {
    Program_Run sim({.program = halvern_sim_program(), .arguments = {"--crlf"}});
    QVERIFY(wait_for_prompt(sim));
    QSerialPort port(introduced_ports(sim.output()).value(0).mid(QString("/dev/").size()));
    QVERIFY2(port.open(QIODevice::ReadWrite), qPrintable(port.errorString()));
    QByteArray received;
    connect(&port, &QSerialPort::readyRead, &port, [&] { received += port.readAll(); });

    port.write("//c3\r");
    QVERIFY(wait_until([&] { return received == "**C 3\r\n"; }));
    QVERIFY(wait_until([&] { return sim.output().contains("unit 1  //c3\n"); }));

    received.clear();
    sim.child().write("fault none\nboth 2\n");
    QVERIFY(wait_until([&] { return received == "**M 2\n"; }));
    sim.child().write("report\n");
    QVERIFY(wait_until([&] { return sim.output().contains("Current KM Control: 2\n"); }));

    port.close();
    sim.child().write("quit\n");
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 0);
}

void Test_Halvern_Sim::it_ends_with_its_input_if_asked_to() {
    Program_Run sim({.program = halvern_sim_program(), .arguments = {"--end-with-input"}});
    sim.child().write("report");
    sim.child().closeWriteChannel();
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 0);
    QVERIFY(sim.output().contains("Buzzer: on"));
}

void Test_Halvern_Sim::it_outlives_its_input_otherwise() {
    Program_Run sim({.program = halvern_sim_program()});
    QVERIFY(wait_for_prompt(sim));
    sim.child().write("report\n");
    sim.child().closeWriteChannel();
    QVERIFY(wait_until([&] { return sim.output().contains("Buzzer: on"); }));

    QSerialPort port(introduced_ports(sim.output()).value(0).mid(QString("/dev/").size()));
    QVERIFY(port.open(QIODevice::ReadWrite));
    port.write("//c2\r");
    QVERIFY(wait_until([&] { return port.bytesAvailable() == 6; }));
    QVERIFY(!sim.has_ended());
}

void Test_Halvern_Sim::sigint_and_sigterm_end_it_with_status_0_data() {
    QTest::addColumn<int>("number");
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGTERM") << SIGTERM;
}

void Test_Halvern_Sim::sigint_and_sigterm_end_it_with_status_0() {
    QFETCH(int, number);
    Program_Run sim({.program = halvern_sim_program()});
    QVERIFY(wait_for_prompt(sim));
    send_signal(sim, number);
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 0);
}

void Test_Halvern_Sim::a_program_sees_the_simulated_ports() {
    Program_Run sim({.program = halvern_sim_program(),
                     .arguments = {"--units", "2", "--", list_ports_program()}});
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 0);
    const QStringList ports = introduced_ports(sim.output());
    QString listed = ports.join('\n') + '\n';
    listed.remove("/dev/");
    QVERIFY2(sim.output().endsWith(listed.toUtf8()), sim.output().constData());
}

void Test_Halvern_Sim::the_status_of_the_program_is_passed_on() {
    Program_Run sim({.program = halvern_sim_program(), .arguments = {"--", "sh", "-c", "exit 41"}});
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 41);
}

void Test_Halvern_Sim::a_signal_that_ends_the_program_becomes_128_and_more() {
    Program_Run sim(
        {.program = halvern_sim_program(), .arguments = {"--", "sh", "-c", "kill -9 $$"}});
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 128 + SIGKILL);
}

void Test_Halvern_Sim::a_program_that_cannot_be_started_gives_127() {
    Program_Run sim({.program = halvern_sim_program(), .arguments = {"--", "/no/such/program"}});
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 127);
    QVERIFY(sim.errors().contains("/no/such/program"));
}

void Test_Halvern_Sim::sigterm_ends_the_program_as_well() {
    Program_Run sim({.program = halvern_sim_program(),
                     .arguments = {"--", "sh", "-c",
                                   "trap 'echo told; exit 7' TERM; echo ready; read nothing"}});
    QVERIFY(wait_until([&] { return sim.output().contains("ready"); }));
    send_signal(sim, SIGTERM);
    QVERIFY(sim.wait_for_end());
    QCOMPARE(sim.exit_status(), 7);
    QVERIFY(sim.output().contains("told"));
}

QTEST_GUILESS_MAIN(Test_Halvern_Sim)

#include "test_halvern_sim.moc"
