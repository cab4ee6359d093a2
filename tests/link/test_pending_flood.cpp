// SPDX-License-Identifier: MIT

#include "link/pending_datagrams.h"

#include <QTest>

/// A peer that sends faster than the tool reads must not block the thread.
class Test_Pending_Flood : public QObject {
    Q_OBJECT

private slots:
    void a_flood_of_datagrams_ends_data();
    void a_flood_of_datagrams_ends();
};

namespace {

qint64 datagram_size = 0;
int datagrams_read = 0;

} // namespace

// Replaces Qt's own function: a socket on which another datagram is always pending.
qint64 QUdpSocket::readDatagram(char* data, qint64 maxlen, QHostAddress* /*host*/,
                                quint16* /*port*/) {
    ++datagrams_read;
    const qint64 size = qMin(datagram_size, maxlen);
    std::fill_n(data, size, 'x');
    return size;
}

void Test_Pending_Flood::a_flood_of_datagrams_ends_data() {
    QTest::addColumn<qint64>("size");
    QTest::addColumn<int>("count");
    QTest::newRow("empty ones") << qint64(0) << 10'000;
    QTest::newRow("small ones") << qint64(36) << 10'000;
    // 16 MiB, and the datagram that exceeds it.
    QTest::newRow("the longest") << qint64(65'507) << 257;
    QTest::newRow("16 MiB to the byte") << qint64(16'384) << 1025;
}

void Test_Pending_Flood::a_flood_of_datagrams_ends() {
    QFETCH(const qint64, size);
    QFETCH(const int, count);
    datagram_size = size;
    datagrams_read = 0;
    QUdpSocket socket;
    const std::optional<QByteArray> chunk = read_pending_datagrams(socket);
    QCOMPARE(datagrams_read, count);
    QVERIFY(chunk.has_value());
    // Nothing of what was read is lost.
    QCOMPARE(chunk->size(), static_cast<qsizetype>(size) * count);
    QCOMPARE(chunk->count('x'), chunk->size());
}

QTEST_GUILESS_MAIN(Test_Pending_Flood)

#include "test_pending_flood.moc"
