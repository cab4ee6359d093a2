// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/find_child.h"
#include "tests/support/private_network.h"
#include "usr/credentials_dialog.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/// The login dialog.
class Test_Credentials_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_size_title_and_icon();
    void it_shows_the_address_and_hides_the_password();
    void what_was_typed_is_checked_in_order_data();
    void what_was_typed_is_checked_in_order();
    void six_characters_each_are_sent();
    void a_good_login_ends_the_dialog_with_the_allocation_data();
    void a_good_login_ends_the_dialog_with_the_allocation();
    void the_dialog_stands_while_it_logs_in();
    void a_refused_login_ends_the_dialog_with_minus_one();
    void a_failed_reading_ends_the_dialog_with_minus_one();
    void the_frames_close_button_sets_the_flag();
    void escape_leaves_an_empty_allocation();
};

namespace {

constexpr const char* credentials_class = "Credentials_Dialog";

Modal_Action log_in(const QString& username, const QString& password) {
    return in_order({type_into("lineEdit_username", username),
                     type_into("lineEdit_password", password),
                     press_object("pushButton_ip_allocation")});
}

} // namespace

void Test_Credentials_Dialog::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Credentials_Dialog::it_has_its_size_title_and_icon() {
    const Credentials_Dialog dialog(adapter_ip, {});
    QCOMPARE(dialog.minimumSize(), QSize(405, 205));
    QCOMPARE(dialog.maximumSize(), QSize(405, 205));
    QCOMPARE(dialog.windowTitle(), QString("Velmoran Ostrel"));
    QVERIFY(!dialog.windowIcon().isNull());
}

void Test_Credentials_Dialog::it_shows_the_address_and_hides_the_password() {
    const Credentials_Dialog dialog("<i>127.0.0.2</i>", {});
    const auto& label = find_child<QLabel>(dialog, "label_current_ip");
    QCOMPARE(label.text(), QString("<i>127.0.0.2</i>"));
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QCOMPARE(find_child<QLineEdit>(dialog, "lineEdit_password").echoMode(), QLineEdit::Password);
    QCOMPARE(find_child<QLineEdit>(dialog, "lineEdit_username").echoMode(), QLineEdit::Normal);
    QCOMPARE(dialog.get_username(), QString());
    QCOMPARE(dialog.get_password(), QString());
    QCOMPARE(dialog.get_ip_allocation(), QString());
    QVERIFY(!dialog.is_closed_by_user());
}

void Test_Credentials_Dialog::what_was_typed_is_checked_in_order_data() {
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("warning");
    QTest::newRow("user name of 7") << "1234567"
                                    << "admin"
                                    << "Username is too long";
    QTest::newRow("both of 7") << "1234567"
                               << "1234567"
                               << "Username is too long";
    QTest::newRow("user name of 7 without password") << "1234567"
                                                     << ""
                                                     << "Username is too long";
    QTest::newRow("password of 7") << "admin"
                                   << "1234567"
                                   << "Password is too long";
    QTest::newRow("password of 7 without user name") << ""
                                                     << "1234567"
                                                     << "Password is too long";
    QTest::newRow("both empty") << ""
                                << ""
                                << "Enter username";
    QTest::newRow("no user name") << ""
                                  << "admin"
                                  << "Enter username";
    QTest::newRow("no password") << "admin"
                                 << ""
                                 << "Enter password";
}

void Test_Credentials_Dialog::what_was_typed_is_checked_in_order() {
    QFETCH(const QString, username);
    QFETCH(const QString, password);
    QFETCH(const QString, warning);
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = log_in(username, password)});
    expect_warning(robot, warning);
    robot.expect({.class_name = credentials_class, .action = close_by_frame()});
    Credentials_Dialog dialog(adapter_ip, {});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames(), QByteArrayList());
    QCOMPARE(dialog.get_ip_allocation(), QString());
    QCOMPARE(dialog.get_username(), username);
    QCOMPARE(dialog.get_password(), password);
}

void Test_Credentials_Dialog::six_characters_each_are_sent() {
    Fast_Network network;
    Adapter_State state;
    state.username = "123456";
    state.password = "abcdef";
    network.add(state);
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = log_in("123456", "abcdef")});
    Credentials_Dialog dialog(adapter_ip, {});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.get_ip_allocation(), QString("00"));
}

void Test_Credentials_Dialog::a_good_login_ends_the_dialog_with_the_allocation_data() {
    QTest::addColumn<bool>("dhcp");
    QTest::addColumn<QString>("allocation");
    QTest::newRow("DHCP") << true << "00";
    QTest::newRow("Static") << false << "80";
}

void Test_Credentials_Dialog::a_good_login_ends_the_dialog_with_the_allocation() {
    QFETCH(const bool, dhcp);
    QFETCH(const QString, allocation);
    Fast_Network network;
    Adapter_State state;
    state.dhcp = dhcp;
    network.add(state);
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = log_in("admin", "admin")});
    Credentials_Dialog dialog(adapter_ip, {});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(dialog.get_ip_allocation(), allocation);
    QCOMPARE(dialog.get_username(), QString("admin"));
    QCOMPARE(dialog.get_password(), QString("admin"));
    QCOMPARE(network.frames_of("03").size(), 1);
}

void Test_Credentials_Dialog::the_dialog_stands_while_it_logs_in() {
    Fast_Network network;
    network.add_adapter();
    Credentials_Dialog dialog(adapter_ip, {});
    QList<bool> visible_meanwhile;
    fake_waiting::while_blocked([&] {
        network.process_pending();
        visible_meanwhile << dialog.isVisible();
    });
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = log_in("admin", "admin")});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(visible_meanwhile, QList<bool>({true, true}));
}

void Test_Credentials_Dialog::a_refused_login_ends_the_dialog_with_minus_one() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = log_in("admin", "wrong")});
    expect_warning(robot, "Bad credentials");
    Credentials_Dialog dialog(adapter_ip, {});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(dialog.get_ip_allocation(), QString("-1"));
}

void Test_Credentials_Dialog::a_failed_reading_ends_the_dialog_with_minus_one() {
    const Fast_Network network;
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = log_in("admin", "admin")});
    expect_warning(robot, "Search USR error");
    expect_warning(robot, "Error in getting data from the USR");
    expect_warning(robot, "Get ip allocation error");
    Credentials_Dialog dialog(adapter_ip, {});
    fail_next_search();
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(dialog.get_ip_allocation(), QString("-1"));
}

void Test_Credentials_Dialog::the_frames_close_button_sets_the_flag() {
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = close_by_frame()});
    Credentials_Dialog dialog(adapter_ip, {});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(dialog.is_closed_by_user());
    QCOMPARE(dialog.get_ip_allocation(), QString());
}

void Test_Credentials_Dialog::escape_leaves_an_empty_allocation() {
    Modal_Robot robot;
    robot.expect({.class_name = credentials_class, .action = press_key(Qt::Key_Escape)});
    Credentials_Dialog dialog(adapter_ip, {});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QCOMPARE(dialog.get_ip_allocation(), QString());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_Credentials_Dialog test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_credentials_dialog.moc"
