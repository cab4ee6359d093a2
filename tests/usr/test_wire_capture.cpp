// SPDX-License-Identifier: MIT

#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/private_network.h"
#include "tests/usr/packet_capture.h"
#include "usr/usr_configurator.h"

#include <QApplication>
#include <QTest>

/// A complete change of settings, below UDP.
class Test_Wire_Capture : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void the_search_goes_from_port_4242_to_everybodys_port_1901();
    void the_adapter_answers_the_search_from_its_own_address();
    void the_login_goes_from_a_port_of_its_own_to_everybody();
    void the_configuration_is_told_field_by_field_data();
    void the_configuration_is_told_field_by_field();
    void the_apply_follows_the_configuration_at_once();
    void nothing_else_was_sent();

private:
    [[nodiscard]] QList<Captured_Datagram> broadcasts() const;

    QList<Captured_Datagram> datagrams;
};

namespace {

constexpr const char* everybody = "255.255.255.255.1901";

} // namespace

void Test_Wire_Capture::initTestCase() {
    Fast_Network network;
    Adapter_State state;
    state.mac = QByteArray::fromHex("001122334455");
    state.username = "ab";
    state.password = "cd";
    state.name = "OLD NAME";
    network.add(state);
    Packet_Capture capture;
    {
        USR_configurator configurator("127.0.0.2", "192.168.0.7", "255.255.254.0", "192.168.0.1",
                                      "80", "ab", "cd");
        QCOMPARE(configurator.login_to_USR(), QString("1"));
        QCOMPARE(configurator.change_credentials_and_name("neu", "wort", "Ostrel"), 1);
    }
    datagrams = capture.finish();
}

QList<Captured_Datagram> Test_Wire_Capture::broadcasts() const {
    QList<Captured_Datagram> found;
    for (const Captured_Datagram& datagram : datagrams) {
        if (datagram.to == everybody) {
            found << datagram;
        }
    }
    return found;
}

void Test_Wire_Capture::the_search_goes_from_port_4242_to_everybodys_port_1901() {
    QCOMPARE_GE(datagrams.size(), 1);
    QCOMPARE(datagrams[0].from, QString("127.0.0.1.4242"));
    QCOMPARE(datagrams[0].to, QString(everybody));
    QCOMPARE(datagrams[0].payload.toHex(), QByteArray("ff010102"));
}

void Test_Wire_Capture::the_adapter_answers_the_search_from_its_own_address() {
    QCOMPARE_GE(datagrams.size(), 2);
    QCOMPARE(datagrams[1].from, QString("127.0.0.2.1901"));
    QCOMPARE(datagrams[1].to, QString("127.0.0.1.4242"));
    QCOMPARE(datagrams[1].payload.size(), 36);
}

void Test_Wire_Capture::the_login_goes_from_a_port_of_its_own_to_everybody() {
    QCOMPARE_GE(broadcasts().size(), 2);
    const Captured_Datagram login = broadcasts()[1];
    QVERIFY(login.from.startsWith("127.0.0.1."));
    QVERIFY(!login.from.endsWith(".4242"));
    QCOMPARE(login.payload.toHex(), QByteArray("ff13030011223344556162000000006364000000009f"));
}

void Test_Wire_Capture::the_configuration_is_told_field_by_field_data() {
    QTest::addColumn<int>("first");
    QTest::addColumn<QByteArray>("hex");
    QTest::newRow("start") << 0 << QByteArray("ff5605");
    QTest::newRow("MAC address") << 3 << QByteArray("001122334455");
    QTest::newRow("user name in force") << 9 << QByteArray("616200000000");
    QTest::newRow("password in force") << 15 << QByteArray("636400000000");
    QTest::newRow("first fixed group") << 21 << QByteArray("093803");
    QTest::newRow("allocation") << 24 << QByteArray("80");
    QTest::newRow("second fixed group") << 25 << QByteArray("2019500002");
    QTest::newRow("static address") << 30 << QByteArray("0700a8c0");
    QTest::newRow("gateway") << 34 << QByteArray("0100a8c0");
    QTest::newRow("subnet mask") << 38 << QByteArray("00feffff");
    QTest::newRow("name") << 42 << QByteArray("4f737472656c00000000000000000000");
    QTest::newRow("new user name") << 58 << QByteArray("6e6575000000");
    QTest::newRow("new password") << 64 << QByteArray("776f72740000");
    QTest::newRow("third fixed group") << 70 << QByteArray("02010000");
    QTest::newRow("MAC address again") << 74 << QByteArray("001122334455");
    QTest::newRow("fourth fixed group") << 80 << QByteArray("100e000001000000");
    // The sum of bytes 1 to 87 of the above.
    QTest::newRow("checksum") << 88 << QByteArray("b5");
}

void Test_Wire_Capture::the_configuration_is_told_field_by_field() {
    QFETCH(const int, first);
    QFETCH(const QByteArray, hex);
    QCOMPARE_GE(broadcasts().size(), 5);
    const QByteArray payload = broadcasts()[3].payload;
    QCOMPARE(payload.size(), 89);
    QCOMPARE(payload.mid(first, hex.size() / 2).toHex(), hex);
}

void Test_Wire_Capture::the_apply_follows_the_configuration_at_once() {
    QCOMPARE_GE(broadcasts().size(), 5);
    const Captured_Datagram apply = broadcasts()[4];
    QCOMPARE(apply.payload.toHex(), QByteArray("ff1304001122334455616200000000636400000000a0"));
    QCOMPARE(apply.from, broadcasts()[3].from);
    QCOMPARE(datagrams.last().payload, apply.payload);
    QCOMPARE(datagrams[datagrams.size() - 2].payload, broadcasts()[3].payload);
}

void Test_Wire_Capture::nothing_else_was_sent() {
    QByteArrayList commands;
    for (const Captured_Datagram& datagram : broadcasts()) {
        commands << datagram.payload.mid(2, 1).toHex();
    }
    QCOMPARE(commands, QByteArrayList({"01", "03", "01", "05", "04"}));
    // Two answers to searches and one to the login.
    QCOMPARE(datagrams.size(), commands.size() + 3);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_Wire_Capture test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_wire_capture.moc"
