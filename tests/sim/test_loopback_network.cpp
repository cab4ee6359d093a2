// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTest>

/// The library that keeps programs on the loopback where they can't have a private network. Each of
/// the small programs here preloads it, so nothing is sent elsewhere.
class Test_Loopback_Network : public QObject {
    Q_OBJECT

private slots:
    void a_broadcast_reaches_each_listener_in_whichever_process();
    void port_23_stands_at_another_port_in_truth();
    void networks_of_other_numbers_hear_nothing();
    void whatever_is_not_the_loopback_is_unreachable_data();
    void whatever_is_not_the_loopback_is_unreachable();
};

namespace {

constexpr int patience_ms = 20'000;

/// Numbers that a simultaneous run of this test is unlikely to have.
int own_number() { return 60 + static_cast<int>(QCoreApplication::applicationPid() % 90); }
QString own_port() { return QString::number(30'000 + QCoreApplication::applicationPid() % 20'000); }

class Child {
public:
    explicit Child(const QStringList& arguments, int network = own_number()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HALVERN_LOOPBACK_NETWORK", QString::number(network));
        environment.insert("LD_PRELOAD", HALVERN_LOOPBACK_LIBRARY);
        environment.insert("LD_LIBRARY_PATH", HALVERN_LOOPBACK_FOLDER);
        environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0");
        process.setProcessEnvironment(environment);
        process.start(HALVERN_LOOPBACK_CHILD, arguments);
    }

    ~Child() {
        process.kill();
        process.waitForFinished();
    }

    QString line() {
        while (!process.canReadLine()) {
            if (!process.waitForReadyRead(patience_ms)) {
                return "(nothing)";
            }
        }
        return QString::fromUtf8(process.readLine().trimmed());
    }

    int status() {
        return process.state() == QProcess::NotRunning || process.waitForFinished(patience_ms)
                   ? process.exitCode()
                   : -1;
    }

private:
    QProcess process;
};

} // namespace

void Test_Loopback_Network::a_broadcast_reaches_each_listener_in_whichever_process() {
    Child first({"listen", "0.0.0.0", own_port()});
    QCOMPARE(first.line(), "listening at port " + own_port());
    Child second({"listen", "0.0.0.0", own_port()});
    QCOMPARE(second.line(), "listening at port " + own_port());
    Child asking({"ask", "255.255.255.255", own_port(), "question", "2"});
    QCOMPARE(first.line(), QString("heard question"));
    QCOMPARE(second.line(), QString("heard question"));
    QSet<QString> answers = {asking.line(), asking.line()};
    QCOMPARE(answers, QSet<QString>({"answer from 127.0.255.1:" + own_port(),
                                     "answer from 127.0.255.2:" + own_port()}));
    QCOMPARE(asking.status(), 0);
}

void Test_Loopback_Network::port_23_stands_at_another_port_in_truth() {
    Child listener({"listen", "127.0.0.2", "23"});
    QCOMPARE(listener.line(), QString("listening at port 23"));
    QFile sockets("/proc/net/udp");
    QVERIFY(sockets.open(QIODevice::ReadOnly));
    // 127.N.0.2 and 20023 as the kernel prints them, the address with its bytes in reverse order.
    const QByteArray in_truth =
        "0200" + QByteArray::number(own_number(), 16).rightJustified(2, '0').toUpper() + "7F:4E37 ";
    QVERIFY(sockets.readAll().contains(in_truth));
    Child asking({"ask", "127.0.0.2", "23", "question", "1"});
    QCOMPARE(listener.line(), QString("heard question"));
    QCOMPARE(asking.line(), QString("answer from 127.0.0.2:23"));
}

void Test_Loopback_Network::networks_of_other_numbers_hear_nothing() {
    Child listener({"listen", "0.0.0.0", own_port()});
    QCOMPARE(listener.line(), "listening at port " + own_port());
    Child stranger({"ask", "255.255.255.255", own_port(), "from elsewhere", "0"},
                   own_number() + 90);
    QCOMPARE(stranger.status(), 0);
    Child neighbour({"ask", "255.255.255.255", own_port(), "from here", "1"});
    QCOMPARE(listener.line(), QString("heard from here"));
}

void Test_Loopback_Network::whatever_is_not_the_loopback_is_unreachable_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("said");
    // Addresses reserved for documentation, which nobody uses.
    QTest::newRow("a datagram") << QStringList({"ask", "192.0.2.1", "23", "question", "0"})
                                << "sendto: Network is unreachable";
    QTest::newRow("a network's broadcast")
        << QStringList({"ask", "192.0.2.255", "1901", "question", "0"})
        << "sendto: Network is unreachable";
    QTest::newRow("a connection") << QStringList({"connect", "192.0.2.1", "23"})
                                  << "connect: Network is unreachable";
    QTest::newRow("an address of one's own")
        << QStringList({"listen", "192.0.2.1", "23"}) << "bind: Cannot assign requested address";
}

void Test_Loopback_Network::whatever_is_not_the_loopback_is_unreachable() {
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, said);
    Child child(arguments);
    QCOMPARE(child.line(), said);
    QCOMPARE(child.status(), 1);
}

QTEST_GUILESS_MAIN(Test_Loopback_Network)
#include "test_loopback_network.moc"
