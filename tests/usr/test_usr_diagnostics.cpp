// SPDX-License-Identifier: MIT

#include "app/message_box.h"
#include "tests/support/debug_lines.h"
#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/private_network.h"
#include "usr/broadcast_interface.h"
#include "usr/usr_configurator.h"
#include "usr/usr_log.h"

#include <QApplication>
#include <QProcess>
#include <QScopeGuard>
#include <QTest>

/// The debug lines about the conversation with the adapter.
class Test_USR_Diagnostics : public QObject {
    Q_OBJECT

private slots:
    void nothing_is_told_unless_switched_on();
    void searches_and_frames_are_told_when_switched_on();
    void the_interface_of_the_search_is_told();
    void of_several_interfaces_the_one_that_is_used_is_told();
    void a_frame_that_could_not_be_sent_is_told();
    void a_failure_is_told_in_the_words_of_its_exception();
    void no_user_name_or_password_is_ever_told_data();
    void no_user_name_or_password_is_ever_told();

private:
    static QStringList lines_of_a_conversation();
};

namespace {

QStringList& logged_lines() {
    static QStringList lines;
    return lines;
}

/// Runs a command of the tool "ip", in real time.
bool ip(const QString& words) {
    const Real_Time time;
    return QProcess::execute("ip", words.split(' ')) == 0;
}

bool change_route(const QString& change) {
    return ip("route " + change + " 255.255.255.255 dev lo src 127.0.0.1");
}

} // namespace

QStringList Test_USR_Diagnostics::lines_of_a_conversation() {
    Fast_Network network;
    Adapter_State state;
    state.username = "keller";
    state.password = "geheim";
    network.add(state);
    logged_lines().clear();
    const QtMessageHandler earlier = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { logged_lines() << text; });
    USR_configurator configurator("127.0.0.2", "127.0.0.2", "255.0.0.0", "127.0.0.1", "80",
                                  "keller", "geheim");
    configurator.login_to_USR();
    configurator.change_credentials_and_name("dach", "offen", "OSTREL");
    qInstallMessageHandler(earlier);
    return logged_lines();
}

void Test_USR_Diagnostics::nothing_is_told_unless_switched_on() {
    QVERIFY(!usr_log().isDebugEnabled());
    QCOMPARE(lines_of_a_conversation(), QStringList());
}

void Test_USR_Diagnostics::searches_and_frames_are_told_when_switched_on() {
    const Debug_Lines debug_lines;
    const QStringList lines = lines_of_a_conversation();
    QCOMPARE(lines.filter("reply of 36 bytes from QHostAddress(\"127.0.0.2\")").size(), 2);
    QCOMPARE(lines.filter("login attempt 1 answered with 520 digits").size(), 1);
    QCOMPARE(lines.filter("frame \"03\" of 22 bytes, sent 22").size(), 1);
    QCOMPARE(lines.filter("frame \"05\" of 89 bytes, sent 89").size(), 1);
    QCOMPARE(lines.filter("frame \"04\" of 22 bytes, sent 22").size(), 1);
    QCOMPARE(lines.filter("search receive buffer in bytes: ").size(), 2);
}

void Test_USR_Diagnostics::the_interface_of_the_search_is_told() {
    const Debug_Lines debug_lines;
    QCOMPARE(lines_of_a_conversation().filter("broadcast goes by \"lo 127.0.0.1\"").size(), 2);
}

void Test_USR_Diagnostics::of_several_interfaces_the_one_that_is_used_is_told() {
    if (!ip("link add cable type veth peer name far")) {
        QSKIP("this kernel makes no second interface");
    }
    const auto remove_cable = qScopeGuard([] {
        ip("link del cable");
        change_route("add");
    });
    QVERIFY(ip("link set far up") && ip("link set cable up"));
    QVERIFY(ip("addr add 10.9.9.1/8 dev cable") && change_route("del"));
    QVERIFY(ip("route add 255.255.255.255 dev cable src 10.9.9.1"));
    QCOMPARE(broadcast_interface(), "cable 10.9.9.1");
}

void Test_USR_Diagnostics::a_frame_that_could_not_be_sent_is_told() {
    const Debug_Lines debug_lines;
    Fast_Network network;
    network.add_adapter();
    USR_configurator configurator("127.0.0.2", "127.0.0.2", "255.0.0.0", "127.0.0.1", "80", "admin",
                                  "admin");
    configurator.get_data_from_USR();
    // As on a computer without a default route.
    QVERIFY(change_route("del"));
    logged_lines().clear();
    const QtMessageHandler earlier = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { logged_lines() << text; });
    const int setup = configurator.setup_USR();
    qInstallMessageHandler(earlier);
    QVERIFY(change_route("add"));
    // The adapter confirms nothing, and a frame that was not sent is not a failure.
    QCOMPARE(setup, 1);
    const QString all = logged_lines().join('\n');
    QVERIFY2(all.contains("broadcast goes by \"no interface: "), qPrintable(all));
    QCOMPARE(logged_lines().filter("the search frame was not sent: \"").size(), 1);
    // The configuration and its confirmation.
    QCOMPARE(logged_lines().filter("the frame was not sent: \"").size(), 2);
}

void Test_USR_Diagnostics::a_failure_is_told_in_the_words_of_its_exception() {
    const Debug_Lines debug_lines;
    logged_lines().clear();
    const QtMessageHandler earlier = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { logged_lines() << text; });
    Modal_Robot robot;
    expect_warning(robot, "Search USR error");
    fake_waiting::fail_at_next_block();
    USR_searcher().search_USR_in_network();
    expect_warning(robot, "no exception");
    report_failure("no exception");
    qInstallMessageHandler(earlier);
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(logged_lines().filter("Search USR error because: no blocking now").size(), 1);
    QCOMPARE(logged_lines().filter("because").size(), 1);
}

void Test_USR_Diagnostics::no_user_name_or_password_is_ever_told_data() {
    QTest::addColumn<QByteArray>("secret");
    for (const char* secret : {"keller", "geheim", "dach", "offen"}) {
        QTest::newRow(secret) << QByteArray(secret);
    }
}

void Test_USR_Diagnostics::no_user_name_or_password_is_ever_told() {
    QFETCH(const QByteArray, secret);
    const Debug_Lines debug_lines;
    const QString all = lines_of_a_conversation().join('\n');
    QVERIFY(!all.isEmpty());
    QVERIFY(!all.contains(secret));
    QVERIFY(!all.contains(secret.toHex()));
}

int main(int argc, char** argv) {
    // The defaults are tested, not the rules in the environment.
    qunsetenv("QT_LOGGING_RULES");
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_USR_Diagnostics test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_usr_diagnostics.moc"
