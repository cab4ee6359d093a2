// SPDX-License-Identifier: MIT

#include "link/pending_datagrams.h"
#include "tests/support/wait_until.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <unistd.h>

/// Taking what is pending on a connected socket, with the peer on the loopback.
class Test_Pending_Datagrams : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothing_pending_gives_nothing();
    void one_datagram_is_one_chunk();
    void all_pending_datagrams_are_one_chunk_in_their_order();
    void an_empty_datagram_is_an_empty_chunk();
    void an_empty_datagram_does_not_hide_what_follows();
    void a_datagram_of_any_size_comes_whole_data();
    void a_datagram_of_any_size_comes_whole();
    void a_refusal_alone_gives_nothing();
    void a_refusal_does_not_hide_the_datagram_behind_it();
    void a_refusal_after_a_datagram_leaves_it_whole();
    void after_each_way_out_the_next_datagram_is_signalled_data();
    void after_each_way_out_the_next_datagram_is_signalled();

private:
    void send(const QByteArray& datagram);
    /// The peer is gone, and the system has reported this to the socket.
    void get_refused();
    /// Releases the peer's port, and binds it again.
    void leave() { peer.reset(); }
    void come_back();

    std::unique_ptr<QUdpSocket> peer;
    std::unique_ptr<QUdpSocket> socket;
    quint16 peer_port = 0;
};

namespace {

/// Recognizable, and different at every place.
QByteArray pattern(qsizetype size) {
    QByteArray bytes(size, '\0');
    for (qsizetype i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>(i % 251);
    }
    return bytes;
}

} // namespace

void Test_Pending_Datagrams::init() {
    peer = std::make_unique<QUdpSocket>();
    QVERIFY(peer->bind(QHostAddress::LocalHost, 0));
    peer_port = peer->localPort();
    socket = std::make_unique<QUdpSocket>();
    socket->connectToHost(QHostAddress::LocalHost, peer_port);
    QVERIFY(socket->waitForConnected());
}

void Test_Pending_Datagrams::cleanup() {
    socket.reset();
    peer.reset();
}

// On the loopback a datagram is pending as soon as its sending returns.
void Test_Pending_Datagrams::send(const QByteArray& datagram) {
    QCOMPARE(peer->writeDatagram(datagram, QHostAddress::LocalHost, socket->localPort()),
             datagram.size());
}

void Test_Pending_Datagrams::get_refused() {
    leave();
    // A system call: Qt's function would consume the report of an earlier refusal.
    QCOMPARE(::write(static_cast<int>(socket->socketDescriptor()), "x", 1), ssize_t(1));
    come_back();
}

void Test_Pending_Datagrams::come_back() {
    peer = std::make_unique<QUdpSocket>();
    QVERIFY(peer->bind(QHostAddress::LocalHost, peer_port));
}

void Test_Pending_Datagrams::nothing_pending_gives_nothing() {
    QVERIFY(!read_pending_datagrams(*socket).has_value());
    QVERIFY(socket->isOpen());
}

void Test_Pending_Datagrams::one_datagram_is_one_chunk() {
    send("//RL\n");
    QCOMPARE(read_pending_datagrams(*socket), std::optional<QByteArray>("//RL\n"));
    QVERIFY(!read_pending_datagrams(*socket).has_value());
}

void Test_Pending_Datagrams::all_pending_datagrams_are_one_chunk_in_their_order() {
    QByteArray all;
    for (int i = 0; i < 50; ++i) {
        const QByteArray datagram = "line " + QByteArray::number(i) + '\n';
        send(datagram);
        all += datagram;
    }
    QCOMPARE(read_pending_datagrams(*socket), std::optional<QByteArray>(all));
}

void Test_Pending_Datagrams::an_empty_datagram_is_an_empty_chunk() {
    send("");
    const std::optional<QByteArray> chunk = read_pending_datagrams(*socket);
    QVERIFY(chunk.has_value());
    QCOMPARE(chunk->size(), 0);
}

void Test_Pending_Datagrams::an_empty_datagram_does_not_hide_what_follows() {
    send("one");
    send("");
    send("two");
    QCOMPARE(read_pending_datagrams(*socket), std::optional<QByteArray>("onetwo"));
}

void Test_Pending_Datagrams::a_datagram_of_any_size_comes_whole_data() {
    QTest::addColumn<int>("size");
    for (const int size : {1, 16'383, 16'384, 16'385, 32'769, 65'507}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void Test_Pending_Datagrams::a_datagram_of_any_size_comes_whole() {
    QFETCH(const int, size);
    send("before");
    send(pattern(size));
    send("behind");
    QCOMPARE(read_pending_datagrams(*socket),
             std::optional<QByteArray>("before" + pattern(size) + "behind"));
}

void Test_Pending_Datagrams::a_refusal_alone_gives_nothing() {
    get_refused();
    QVERIFY(!read_pending_datagrams(*socket).has_value());
    QVERIFY(socket->isOpen());
    QCOMPARE(socket->state(), QAbstractSocket::ConnectedState);
}

void Test_Pending_Datagrams::a_refusal_does_not_hide_the_datagram_behind_it() {
    get_refused();
    send("the answer");
    QCOMPARE(read_pending_datagrams(*socket), std::optional<QByteArray>("the answer"));
    QVERIFY(!read_pending_datagrams(*socket).has_value());
}

void Test_Pending_Datagrams::a_refusal_after_a_datagram_leaves_it_whole() {
    send("one");
    get_refused();
    send("two");
    QCOMPARE(read_pending_datagrams(*socket), std::optional<QByteArray>("onetwo"));
}

void Test_Pending_Datagrams::after_each_way_out_the_next_datagram_is_signalled_data() {
    QTest::addColumn<bool>("refused");
    QTest::addColumn<QByteArray>("datagram");
    QTest::newRow("nothing") << false << QByteArray();
    QTest::newRow("a refusal") << true << QByteArray();
    QTest::newRow("a datagram") << false << QByteArray("x");
    QTest::newRow("both") << true << QByteArray("x");
}

void Test_Pending_Datagrams::after_each_way_out_the_next_datagram_is_signalled() {
    QFETCH(const bool, refused);
    QFETCH(const QByteArray, datagram);
    const QSignalSpy signalled(socket.get(), &QIODevice::readyRead);
    for (int round = 1; round <= 3; ++round) {
        if (refused) {
            get_refused();
        }
        if (!datagram.isEmpty()) {
            send(datagram);
        }
        // Left unread twice: then Qt waits for a read.
        QTest::qWait(0);
        QTest::qWait(0);
        (void)read_pending_datagrams(*socket);
        const qsizetype before = signalled.size();
        send("next");
        QVERIFY(wait_until([&] { return signalled.size() > before; }));
        QCOMPARE(read_pending_datagrams(*socket), std::optional<QByteArray>("next"));
    }
}

QTEST_GUILESS_MAIN(Test_Pending_Datagrams)

#include "test_pending_datagrams.moc"
