// SPDX-License-Identifier: MIT

#include "sim/adapter_network.h"
#include "tests/end_to_end/driven_program.h"
#include "tests/support/private_network.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QTcpServer>
#include <QTest>
#include <QUdpSocket>

/// The real program on a machine whose environment names a proxy.
class Test_Program_Proxy : public QObject {
    Q_OBJECT

private slots:
    void a_proxy_hears_nothing_while_the_search_finds_an_adapter_data();
    void a_proxy_hears_nothing_while_the_search_finds_an_adapter();
};

namespace {

const QHostAddress proxy_address = QHostAddress("127.0.0.9");
constexpr quint16 proxy_port = 1080;

/// Accepts every connection and datagram that a proxy might get.
class Listening_Proxy {
public:
    [[nodiscard]] bool start() {
        return stream.listen(proxy_address, proxy_port) &&
               datagrams.bind(proxy_address, proxy_port);
    }
    [[nodiscard]] bool was_contacted() {
        // A connection counts even if it was closed again.
        return stream.waitForNewConnection(0) || stream.hasPendingConnections() ||
               datagrams.hasPendingDatagrams();
    }

private:
    QTcpServer stream;
    QUdpSocket datagrams;
};

/// Every environment variable in which some program expects a proxy.
QMap<QString, QString> environment_with_proxy() {
    // The kind of proxy that also forwards datagrams.
    const QString proxy = "socks5://127.0.0.9:1080";
    QMap<QString, QString> environment = {{"no_proxy", ""}, {"NO_PROXY", ""}};
    for (const QString kind : {"http", "https", "ftp", "all", "socks", "udp"}) {
        environment[kind + "_proxy"] = proxy;
        environment[(kind + "_proxy").toUpper()] = proxy;
    }
    environment["socks_server"] = "127.0.0.9:1080";
    return environment;
}

} // namespace

void Test_Program_Proxy::a_proxy_hears_nothing_while_the_search_finds_an_adapter_data() {
    QTest::addColumn<QString>("model");
    QTest::newRow("Plus") << "PLUS";
    QTest::newRow("Pro") << "PRO";
}

void Test_Program_Proxy::a_proxy_hears_nothing_while_the_search_finds_an_adapter() {
    QFETCH(const QString, model);
    Listening_Proxy proxy;
    QVERIFY(proxy.start());
    Adapter_Network network;
    QVERIFY(network.start());
    QVERIFY(network.add(Adapter_State()).is_online());
    QByteArrayList frames;
    connect(&network, &Adapter_Network::frame_received, this,
            [&](const QByteArray& frame) { frames.append(frame.toHex()); });

    Driven_Program program({}, Port_List::answers, environment_with_proxy());
    program.choose_model(model);
    program.answer("radioButton_TCP_IP,pushButton_continue");
    QVERIFY2(program.wait_for("modal Select_hardware_Dialog"),
             qPrintable(program.lines().join('\n') + program.errors()));
    // One search, sent to the network and answered: without an answer a box would be open here.
    QCOMPARE(frames, QByteArrayList{"ff010102"});
    QVERIFY(!proxy.was_contacted());
    program.answer("frame");
    QVERIFY(program.wait_for("shown Halvern_Velmoran_" + model));
    program.close_window();
    QVERIFY(program.wait_for_end());
    QCOMPARE(program.exit_status(), 0);
    QVERIFY(!proxy.was_contacted());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        // The proxy itself connects to nobody.
        for (const char* name : {"http_proxy", "https_proxy", "all_proxy"}) {
            qunsetenv(name);
        }
        const QCoreApplication application(count, values);
        Test_Program_Proxy test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_program_proxy.moc"
