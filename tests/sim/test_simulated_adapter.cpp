// SPDX-License-Identifier: MIT

#include "sim/adapter_network.h"
#include "sim/switch_logic.h"
#include "tests/support/adapter_process.h"
#include "tests/support/private_network.h"
#include "tests/support/wait_until.h"

#include <QCoreApplication>
#include <QTest>

/// The simulated adapter itself: the frames it rejects, and the switch behind its port 23.
class Test_Simulated_Adapter : public QObject {
    Q_OBJECT

private slots:
    void good_frames_are_taken();
    void wrong_frames_are_turned_down_with_the_reason_data();
    void wrong_frames_are_turned_down_with_the_reason();
    void frames_for_another_mac_address_are_ignored();
    void an_apply_needs_a_configuration_right_before_it();
    void answers_to_a_batch_of_commands_are_one_datagram();
    void answers_can_be_split();
    void a_switch_can_speak_unasked();
    void the_program_prints_what_it_takes();
    void the_program_has_a_switch_of_each_model_behind_port_23();
    void the_program_explains_itself();
    void the_program_turns_wrong_arguments_down_data();
    void the_program_turns_wrong_arguments_down();
    void the_program_binds_nothing_beside_a_real_interface();
};

namespace {

constexpr int patience_ms = 20'000;

QByteArray with_checksum(QByteArray frame) {
    unsigned sum = 0;
    for (const char byte : frame.mid(1)) {
        sum += static_cast<unsigned char>(byte);
    }
    return frame.append(static_cast<char>(sum % 256));
}

// To the adapter d8b04c000002, user name and password "admin".
QByteArray login() {
    return with_checksum(QByteArray::fromHex("ff1303d8b04c00000261646d696e0061646d696e00"));
}
QByteArray apply() {
    return with_checksum(QByteArray::fromHex("ff1304d8b04c00000261646d696e0061646d696e00"));
}
QByteArray config_body() {
    return QByteArray::fromHex("ff5605d8b04c00000261646d696e0061646d696e00"
                               "093803802019500002"
                               "4d00007f0100007f000000ff"
                               "4e4557204e414d450000000000000000"
                               "61646d696e0061646d696e00"
                               "02010000d8b04c000002100e000001000000");
}
QByteArray config() { return with_checksum(config_body()); }

QByteArray changed(QByteArray body, int index, char byte) {
    body[index] = byte;
    return with_checksum(body);
}

/// A socket that talks to the switch behind the adapter at 127.0.0.2.
class Switch_Talk {
public:
    Switch_Talk() {
        socket.connectToHost(QHostAddress("127.0.0.2"), 23);
        socket.waitForConnected();
    }

    /// Sends each command as a separate datagram and waits for this number of answers.
    QByteArrayList ask(const QByteArrayList& commands, int datagrams) {
        for (const QByteArray& command : commands) {
            socket.write(command + '\r');
        }
        return take(datagrams);
    }

    QByteArrayList take(int datagrams) {
        QByteArrayList taken;
        const bool all_came = wait_until([&] {
            while (socket.hasPendingDatagrams()) {
                QByteArray datagram(socket.pendingDatagramSize(), '\0');
                socket.readDatagram(datagram.data(), datagram.size());
                taken << datagram;
            }
            return taken.size() >= datagrams;
        });
        return all_came ? taken : QByteArrayList();
    }

private:
    QUdpSocket socket;
};

QByteArray echo(const QByteArray& command) { return "[" + command + "]"; }

} // namespace

void Test_Simulated_Adapter::good_frames_are_taken() {
    Adapter_Logic unit;
    QCOMPARE(unit.take(QByteArray::fromHex("ff010102")).answers.value(0).size(), 36);
    QCOMPARE(unit.take(login()).answers.value(0).size(), 260);
    QCOMPARE(unit.take(config()).note, QString("configuration, waits for its apply"));
    const Adapter_Reaction reaction = unit.take(apply());
    QVERIFY(reaction.restarts);
    QCOMPARE(unit.state().address.toString(), QString("127.0.0.77"));
    QCOMPARE(unit.state().name, QByteArray("NEW NAME"));
}

void Test_Simulated_Adapter::wrong_frames_are_turned_down_with_the_reason_data() {
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("note");
    const QByteArray login_body = login().chopped(1);
    QTest::newRow("empty") << QByteArray() << "rejected: no frame";
    QTest::newRow("first byte") << changed(login_body, 0, 'x') << "rejected: no frame";
    QTest::newRow("unknown command") << changed(login_body, 2, 9) << "rejected: an unknown command";
    QTest::newRow("search checksum")
        << QByteArray::fromHex("ff010103") << "rejected: a wrong search frame";
    QTest::newRow("length byte") << changed(login_body, 1, 0x12) << "rejected: a wrong length byte";
    QTest::newRow("login checksum") << login_body + '\0' << "rejected: a wrong checksum";
    QTest::newRow("short login") << login().chopped(6) << "rejected: 16 bytes instead of 22";
    QTest::newRow("user name") << changed(login_body, 9, 'x') << "login, refused: wrong user name";
    QTest::newRow("password") << changed(login_body, 15, 'x') << "login, refused: wrong password";
    QTest::newRow("password not filled up with zero bytes")
        << changed(login_body, 20, ' ') << "login, refused: wrong password";
    QTest::newRow("configuration user name")
        << changed(config_body(), 9, 'x') << "configuration, refused: wrong user name";
    QTest::newRow("first fixed group")
        << changed(config_body(), 22, 0)
        << "rejected: configuration: bytes from 21 on are 090003 instead of 093803";
    QTest::newRow("allocation") << changed(config_body(), 24, 0x40)
                                << "rejected: configuration: the allocation is neither 00 nor 80";
    QTest::newRow("second fixed group")
        << changed(config_body(), 29, 0)
        << "rejected: configuration: bytes from 25 on are 2019500000 instead of 2019500002";
    QTest::newRow("third fixed group")
        << changed(config_body(), 70, 0)
        << "rejected: configuration: bytes from 70 on are 00010000 instead of 02010000";
    QTest::newRow("second MAC address")
        << changed(config_body(), 74, 0)
        << "rejected: configuration: the second MAC address is another one";
    QTest::newRow("fourth fixed group") << changed(config_body(), 81, 0)
                                        << "rejected: configuration: bytes from 80 on are "
                                           "1000000001000000 instead of 100e000001000000";
}

void Test_Simulated_Adapter::wrong_frames_are_turned_down_with_the_reason() {
    QFETCH(const QByteArray, frame);
    QFETCH(const QString, note);
    Adapter_Logic unit;
    const Adapter_Reaction reaction = unit.take(frame);
    QCOMPARE(reaction.note, note);
    QCOMPARE(reaction.answers.size(), note.startsWith("login, refused") ? 1 : 0);
    for (const QByteArray& answer : reaction.answers) {
        QCOMPARE(answer.size(), 4);
    }
    QVERIFY(!unit.take(apply()).restarts);
}

void Test_Simulated_Adapter::frames_for_another_mac_address_are_ignored() {
    Adapter_Logic unit;
    for (const QByteArray& frame : {login(), apply(), config()}) {
        const Adapter_Reaction reaction = unit.take(changed(frame.chopped(1), 8, 0x55));
        QCOMPARE(reaction.verdict, Adapter_Reaction::Verdict::not_for_us);
        QVERIFY(reaction.answers.isEmpty());
    }
}

void Test_Simulated_Adapter::an_apply_needs_a_configuration_right_before_it() {
    Adapter_Logic unit;
    QCOMPARE(unit.take(apply()).note, QString("rejected: apply: no configuration before it"));
    unit.take(config());
    QVERIFY(unit.take(apply()).restarts);
    QVERIFY(!unit.take(apply()).restarts);
}

void Test_Simulated_Adapter::answers_to_a_batch_of_commands_are_one_datagram() {
    Adapter_Network network;
    QVERIFY(network.start());
    network.add({}).set_switch(&echo);
    Switch_Talk talk;
    QCOMPARE(talk.ask({"//rl", "//??", "//BP"}, 1), QByteArrayList{"[//rl][//??][//BP]"});
    QCOMPARE(talk.ask({"//c2"}, 1), QByteArrayList{"[//c2]"});
}

void Test_Simulated_Adapter::answers_can_be_split() {
    Adapter_Network network;
    QVERIFY(network.start());
    Simulated_Adapter& adapter = network.add({});
    adapter.set_switch(&echo);
    adapter.set_split(4);
    Switch_Talk talk;
    QCOMPARE(talk.ask({"//rl", "//??"}, 3), QByteArrayList({"[//r", "l][/", "/??]"}));
}

void Test_Simulated_Adapter::a_switch_can_speak_unasked() {
    Adapter_Network network;
    QVERIFY(network.start());
    Simulated_Adapter& adapter = network.add({});
    adapter.set_switch(&echo);
    Switch_Talk talk;
    talk.ask({"//rl"}, 1);
    adapter.send_from_switch("**M 3\n");
    QCOMPARE(talk.take(1), QByteArrayList{"**M 3\n"});
}

void Test_Simulated_Adapter::the_program_prints_what_it_takes() {
    Adapter_Process adapters({"--count", "2", "--mac", "d8b04c000002"});
    QUdpSocket tool;
    QCOMPARE(tool.writeDatagram(login(), QHostAddress::Broadcast, 1901), 22);
    QVERIFY(tool.waitForReadyRead(patience_ms));
    QCOMPARE(tool.pendingDatagramSize(), 260);
    const QString line = "127.0.0.2 received " + login().toHex() + ": login, answered";
    QVERIFY(wait_until([&] { return adapters.lines().contains(line); }));
    QCOMPARE(adapters.lines(), QStringList({"2 adapter(s) from 127.0.0.2 on", line}));
}

void Test_Simulated_Adapter::the_program_has_a_switch_of_each_model_behind_port_23() {
    for (const bool is_pro : {false, true}) {
        Adapter_Process adapter({"--switch", is_pro ? "pro" : "plus"});
        Switch_Logic unit(is_pro ? Switch_Model::pro : Switch_Model::plus);
        Switch_Talk talk;
        QCOMPARE(talk.ask({"//rl", "//QA"}, 1),
                 QByteArrayList{unit.answer("//rl") + unit.answer("//QA")});
        QVERIFY(
            wait_until([&] { return adapter.lines().contains("127.0.0.2 switch command: //QA"); }));
    }
}

void Test_Simulated_Adapter::the_program_explains_itself() {
    QProcess program;
    program.start(HALVERN_SIM_ADAPTER, {"--help"});
    QVERIFY(program.waitForFinished(patience_ms));
    QCOMPARE(program.exitCode(), 0);
    const QString help = QString::fromUtf8(program.readAllStandardOutput());
    for (const char* option : {"--count", "--name", "--never-back", "--split", "--switch"}) {
        QVERIFY2(help.contains(option), option);
    }
}

void Test_Simulated_Adapter::the_program_turns_wrong_arguments_down_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::newRow("no number") << QStringList({"--count", "many"})
                               << "--count must be a number from 1 to 1000";
    QTest::newRow("no address") << QStringList({"--address", "here"})
                                << "--address must be an IPv4 address";
    QTest::newRow("long name") << QStringList({"--name", "seventeen letters"})
                               << "--name must be at most 16 bytes";
    QTest::newRow("unknown model")
        << QStringList({"--switch", "lite"}) << "--switch must be one of plus, pro, none";
    QTest::newRow("argument without option") << QStringList("please") << "only options are allowed";
}

void Test_Simulated_Adapter::the_program_turns_wrong_arguments_down() {
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, error);
    QProcess program;
    program.start(HALVERN_SIM_ADAPTER, arguments);
    QVERIFY(program.waitForFinished(patience_ms));
    QCOMPARE(program.exitCode(), 1);
    QCOMPARE(QString::fromUtf8(program.readAllStandardError()).trimmed(), error);
}

void Test_Simulated_Adapter::the_program_binds_nothing_beside_a_real_interface() {
    QCOMPARE(QProcess::execute("ip", {"link", "add", "real0", "type", "veth", "peer", "real1"}), 0);
    QCOMPARE(QProcess::execute("ip", {"link", "set", "real0", "up"}), 0);
    QProcess program;
    program.start(HALVERN_SIM_ADAPTER, QStringList());
    QVERIFY(program.waitForFinished(patience_ms));
    QCOMPARE(program.exitCode(), 2);
    QCOMPARE(QProcess::execute("ip", {"link", "del", "real0"}), 0);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QCoreApplication application(count, values);
        Test_Simulated_Adapter test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_simulated_adapter.moc"
