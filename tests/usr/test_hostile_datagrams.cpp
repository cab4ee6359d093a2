// SPDX-License-Identifier: MIT

#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/modal_robot.h"
#include "tests/support/private_network.h"
#include "tests/support/raw_sender.h"
#include "tests/usr/datagram_flood.h"
#include "usr/usr_configurator.h"

#include <QApplication>
#include <QRandomGenerator>
#include <QTest>

/// Datagrams of all sizes, meaningless content and floods on both sockets of the tool.
class Test_Hostile_Datagrams : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_search_survives_a_datagram_of_every_size();
    void a_search_survives_mixed_random_datagrams();
    void a_login_survives_an_answer_of_every_size();
    void a_login_survives_random_answers_of_the_right_size();
    void a_search_ends_in_a_flood_of_right_replies();
    void a_search_ends_when_a_flood_of_wrong_sizes_ends_data();
    void a_search_ends_when_a_flood_of_wrong_sizes_ends();
    void a_login_goes_through_when_a_flood_ends_data();
    void a_login_goes_through_when_a_flood_ends();

private:
    double memory_before = 0;
};

namespace {

constexpr double max_growth_mb = 200;

/// The datagrams of a finite flood, and how many of them arrive while the tool is blocked once.
constexpr int whole_flood = 2000;
constexpr int some = 200;

QByteArray random_bytes(qsizetype size) {
    QByteArray bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(QRandomGenerator::global()->bounded(256));
    }
    return bytes;
}

/// Every size up to some hundreds, then some up to the largest that UDP has.
QList<int> sizes() {
    QList<int> all;
    for (int size = 0; size <= 300; ++size) {
        all << size;
    }
    return all << 519 << 520 << 521 << 1472 << 1473 << 4096 << 32768 << 65506 << 65507;
}

QByteArray right_reply() { return Adapter_Logic().search_reply(); }

} // namespace

void Test_Hostile_Datagrams::init() { memory_before = peak_memory_mb(); }

void Test_Hostile_Datagrams::cleanup() {
    const double growth = peak_memory_mb() - memory_before;
    QVERIFY2(growth < max_growth_mb, qPrintable(QString("memory grew by %1 MB").arg(growth)));
    QCOMPARE(windows_left(), QStringList());
}

void Test_Hostile_Datagrams::a_search_survives_a_datagram_of_every_size() {
    Fast_Network network;
    Raw_Sender sender;
    USR_searcher searcher;
    for (const int size : sizes()) {
        bool sent = false;
        fake_waiting::while_blocked([&] {
            if (!sent) {
                sent = sender.send(random_bytes(size));
            }
            network.process_pending();
        });
        QCOMPARE(searcher.search_USR_in_network(), 1);
        QVERIFY(sent);
        QCOMPARE(searcher.get_USR_replies().size(), size == 36 ? 1 : 0);
    }
}

void Test_Hostile_Datagrams::a_search_survives_mixed_random_datagrams() {
    Fast_Network network;
    network.add_adapter();
    Raw_Sender sender;
    USR_configurator configurator("127.0.0.2", "admin", "admin");
    for (int round = 0; round < 100; ++round) {
        bool is_first = true;
        fake_waiting::while_blocked([&] {
            for (int i = 0; is_first && i < 20; ++i) {
                sender.send(random_bytes(QRandomGenerator::global()->bounded(80)));
            }
            is_first = false;
            network.process_pending();
        });
        configurator.get_data_from_USR();
        for (const QString& reply : configurator.get_USR_replies()) {
            QCOMPARE(reply.size(), 72);
        }
    }
}

void Test_Hostile_Datagrams::a_login_survives_an_answer_of_every_size() {
    for (const int size : sizes()) {
        Fast_Network network;
        Simulated_Adapter& adapter = network.add_adapter();
        adapter.unit().set_faults({.login_answer_bytes = size});
        // The wrong size is sent once: the next attempt finds a working adapter.
        connect(&adapter, &Simulated_Adapter::frame_taken, this, [&](const QByteArray& frame) {
            if (frame.at(2) == 3) {
                adapter.unit().set_faults({});
            }
        });
        Modal_Robot robot;
        if (size == 4) {
            robot.expect({.text = "Bad credentials", .icon = QMessageBox::Warning});
        }
        USR_configurator configurator("127.0.0.2", "admin", "admin");
        QCOMPARE(configurator.login_to_USR(), QString(size == 4 ? "-1" : "1"));
        QVERIFY2(robot.done(), robot.why());
        QCOMPARE(network.frames_of("03").size(), size == 4 || size == 260 ? 1 : 2);
    }
}

void Test_Hostile_Datagrams::a_login_survives_random_answers_of_the_right_size() {
    Raw_Sender sender;
    for (int round = 0; round < 200; ++round) {
        Fast_Network network;
        network.add_adapter().unit().set_faults({.unanswered_logins = -1});
        connect(&network, &Adapter_Network::frame_received, this,
                [&](const QByteArray& frame, const QHostAddress&, quint16 port) {
                    if (frame.at(2) == 3) {
                        sender.send(random_bytes(260), port);
                    }
                });
        USR_configurator configurator("127.0.0.2", "admin", "admin");
        const QString allocation = configurator.get_ip_allocation();
        QVERIFY(allocation == "00" || allocation == "80");
        QCOMPARE(configurator.get_static_ip().count('.'), 3);
        QCOMPARE(configurator.get_gateway().count('.'), 3);
        QCOMPARE(configurator.get_subnet_mask().count('.'), 3);
    }
}

void Test_Hostile_Datagrams::a_search_ends_in_a_flood_of_right_replies() {
    const Fast_Network network;
    // The flood lasts as long as the search: only the search can end by itself.
    USR_searcher searcher;
    const Datagram_Flood flood(right_reply(), search_port, Datagram_Flood::endless);
    fake_waiting::while_blocked([&] { flood.wait_for_more(some); });
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE_GT(searcher.get_USR_replies().size(), 100);
    QCOMPARE_LE(searcher.get_USR_replies().size(), 10'000);
    QCOMPARE(searcher.get_USR_addresses().size(), searcher.get_USR_replies().size());
}

void Test_Hostile_Datagrams::a_search_ends_when_a_flood_of_wrong_sizes_ends_data() {
    QTest::addColumn<int>("size");
    // The sizes do not divide 260: 13 datagrams of 20 bytes are as long as the answer to a login.
    for (const int size : {0, 21, 1472, 65507}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void Test_Hostile_Datagrams::a_search_ends_when_a_flood_of_wrong_sizes_ends() {
    QFETCH(const int, size);
    Fast_Network network;
    network.add_adapter();
    USR_searcher searcher;
    std::unique_ptr<Datagram_Flood> flood;
    fake_waiting::while_blocked([&] {
        // After the search's socket is bound, and before the right reply.
        if (!flood) {
            flood =
                std::make_unique<Datagram_Flood>(QByteArray(size, 'f'), search_port, whole_flood);
        }
        flood->wait_for_more(some);
        network.process_pending();
    });
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE_GT(fake_waiting::block_count(), 1);
    // After a right reply in the same pass the flood's datagrams are read with its size.
    const QStringList replies = searcher.get_USR_replies();
    QVERIFY(replies.contains(QString(network.adapters().front()->unit().search_reply().toHex())));
    QCOMPARE(replies.filter(QRegularExpression("^[0-9a-f]{72}$")).size(), replies.size());
    QCOMPARE_LE(replies.size(), 10'000);
}

void Test_Hostile_Datagrams::a_login_goes_through_when_a_flood_ends_data() {
    a_search_ends_when_a_flood_of_wrong_sizes_ends_data();
}

void Test_Hostile_Datagrams::a_login_goes_through_when_a_flood_ends() {
    QFETCH(const int, size);
    Fast_Network network;
    network.add_adapter();
    std::unique_ptr<Datagram_Flood> flood;
    connect(&network, &Adapter_Network::frame_received, this,
            [&](const QByteArray& frame, const QHostAddress&, quint16 port) {
                if (frame.at(2) == 3 && !flood) {
                    flood =
                        std::make_unique<Datagram_Flood>(QByteArray(size, 'f'), port, whole_flood);
                }
            });
    fake_waiting::while_blocked([&] {
        network.process_pending();
        if (flood) {
            flood->wait_for_more(some);
        }
    });
    USR_configurator configurator("127.0.0.2", "admin", "admin");
    QCOMPARE(configurator.get_static_ip(), QString("127.0.0.2"));
    QCOMPARE_GT(network.frames_of("03").size(), 1);
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_Hostile_Datagrams test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_hostile_datagrams.moc"
