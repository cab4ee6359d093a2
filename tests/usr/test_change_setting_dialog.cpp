// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/find_child.h"
#include "tests/support/private_network.h"
#include "usr/change_setting_for_usr_dialog.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

/// The dialog of the admin settings.
class Test_Change_Setting_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_size_title_and_icon();
    void it_starts_with_empty_fields_and_the_values_in_force();
    void what_was_typed_is_checked_in_order_data();
    void what_was_typed_is_checked_in_order();
    void new_values_are_sent_and_taken_over();
    void blank_fields_send_the_values_in_force();
    void the_longest_values_are_accepted();
    void the_ip_settings_are_passed_along();
    void a_failed_change_is_followed_by_the_success_message();
    void a_name_of_several_byte_characters_is_sent_whole();
    void closed_after_a_failed_check_nothing_is_applied();
    void after_a_change_the_next_dialog_works_with_the_new_values();
    void escape_applies_nothing();
};

namespace {

constexpr const char* change_setting_class = "Change_setting_for_USR_Dialog";
const char* const settings_applied = "Settings were applied successfully";

class Shown_Change_Dialog : public Change_setting_for_USR_Dialog {
public:
    explicit Shown_Change_Dialog(const QString& address = "127.0.0.2",
                                 const QString& user = "admin", const QString& word = "admin",
                                 const QString& name = "OSTREL")
        : Change_setting_for_USR_Dialog(adapter_ip, address, "255.0.0.0", "127.0.0.1", "80", user,
                                        word, name) {}
};

Modal_Action apply(const QString& name, const QString& username, const QString& password) {
    return in_order({type_into("lineEdit_Name", name), type_into("lineEdit_Username", username),
                     type_into("lineEdit_Password", password), press_object("pushButton_Apply")});
}

const Adapter_State& only_state(const Fast_Network& network) {
    return network.adapters().front()->unit().state();
}

} // namespace

void Test_Change_Setting_Dialog::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Change_Setting_Dialog::it_has_its_size_title_and_icon() {
    const Shown_Change_Dialog dialog;
    QCOMPARE(dialog.minimumSize(), QSize(425, 341));
    QCOMPARE(dialog.maximumSize(), QSize(425, 341));
    QCOMPARE(dialog.windowTitle(), QString("Velmoran Ostrel"));
    QVERIFY(!dialog.windowIcon().isNull());
}

void Test_Change_Setting_Dialog::it_starts_with_empty_fields_and_the_values_in_force() {
    const Shown_Change_Dialog dialog;
    for (const char* name : {"lineEdit_Name", "lineEdit_Username", "lineEdit_Password"}) {
        QCOMPARE(find_child<QLineEdit>(dialog, name).text(), QString());
    }
    QCOMPARE(find_child<QLineEdit>(dialog, "lineEdit_Password").echoMode(), QLineEdit::Password);
    QCOMPARE(dialog.get_username(), QString("admin"));
    QCOMPARE(dialog.get_password(), QString("admin"));
    QCOMPARE(dialog.get_usr_name(), QString("OSTREL"));
    QVERIFY(!dialog.is_settings_applied());
}

void Test_Change_Setting_Dialog::what_was_typed_is_checked_in_order_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("username");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("warning");
    const QString long_name(17, 'n');
    QTest::newRow("name of 17") << long_name << ""
                                << ""
                                << "Name of USR is too long";
    QTest::newRow("all too long") << long_name << "1234567"
                                  << "1234567"
                                  << "Name of USR is too long";
    QTest::newRow("user name of 7") << ""
                                    << "1234567"
                                    << ""
                                    << "Username is too long";
    QTest::newRow("user name and password of 7") << ""
                                                 << "1234567"
                                                 << "1234567"
                                                 << "Username is too long";
    QTest::newRow("password of 7") << ""
                                   << ""
                                   << "1234567"
                                   << "Password is too long";
}

void Test_Change_Setting_Dialog::what_was_typed_is_checked_in_order() {
    QFETCH(const QString, name);
    QFETCH(const QString, username);
    QFETCH(const QString, password);
    QFETCH(const QString, warning);
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = apply(name, username, password)});
    expect_warning(robot, warning);
    robot.expect({.class_name = change_setting_class, .action = close_by_frame()});
    Shown_Change_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(network.serve(), 0);
    QCOMPARE(network.frames(), QByteArrayList());
    QVERIFY(!dialog.is_settings_applied());
}

void Test_Change_Setting_Dialog::new_values_are_sent_and_taken_over() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect(
        {.class_name = change_setting_class, .action = apply("WEST WING", "keller", "geheim")});
    expect_information(robot, settings_applied);
    Shown_Change_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    network.serve();
    QVERIFY(!dialog.isVisible());
    QVERIFY(dialog.is_settings_applied());
    QCOMPARE(dialog.get_usr_name(), QString("WEST WING"));
    QCOMPARE(dialog.get_username(), QString("keller"));
    QCOMPARE(dialog.get_password(), QString("geheim"));
    QCOMPARE(only_state(network).name, QByteArray("WEST WING"));
    QCOMPARE(only_state(network).username, QByteArray("keller"));
    QCOMPARE(only_state(network).password, QByteArray("geheim"));
}

void Test_Change_Setting_Dialog::blank_fields_send_the_values_in_force() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = press_object("pushButton_Apply")});
    expect_information(robot, settings_applied);
    // The current name is written from its text, whatever the adapter's reply contains.
    Shown_Change_Dialog dialog("127.0.0.2", "admin", "admin", "FROM TEXT");
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    network.serve();
    QVERIFY(dialog.is_settings_applied());
    QCOMPARE(dialog.get_usr_name(), QString("FROM TEXT"));
    QCOMPARE(only_state(network).name, QByteArray("FROM TEXT"));
    QCOMPARE(only_state(network).username, QByteArray("admin"));
    QCOMPARE(only_state(network).password, QByteArray("admin"));
}

void Test_Change_Setting_Dialog::the_longest_values_are_accepted() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class,
                  .action = apply("sixteen letters!", "123456", "654321")});
    expect_information(robot, settings_applied);
    Shown_Change_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    network.serve();
    QCOMPARE(only_state(network).name, QByteArray("sixteen letters!"));
    QCOMPARE(only_state(network).username, QByteArray("123456"));
}

void Test_Change_Setting_Dialog::the_ip_settings_are_passed_along() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = apply("WEST", "", "")});
    expect_information(robot, settings_applied);
    Change_setting_for_USR_Dialog dialog(adapter_ip, "127.1.2.3", "255.255.254.0", "127.9.8.7",
                                         "00", "admin", "admin", "OSTREL");
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    network.serve();
    QVERIFY(only_state(network).dhcp);
    QCOMPARE(only_state(network).static_ip.toString(), QString("127.1.2.3"));
    QCOMPARE(only_state(network).subnet_mask.toString(), QString("255.255.254.0"));
    QCOMPARE(only_state(network).gateway.toString(), QString("127.9.8.7"));
}

void Test_Change_Setting_Dialog::a_failed_change_is_followed_by_the_success_message() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect(
        {.class_name = change_setting_class, .action = apply("WEST WING", "keller", "geheim")});
    expect_warning(robot, "Error in the setup of USR");
    expect_information(robot, settings_applied);
    // The state after a failed reading.
    Shown_Change_Dialog dialog("-1");
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(dialog.is_settings_applied());
    QCOMPARE(dialog.get_usr_name(), QString("WEST WING"));
    QCOMPARE(dialog.get_password(), QString("geheim"));
    QCOMPARE(only_state(network).name, QByteArray("OSTREL"));
}

void Test_Change_Setting_Dialog::a_name_of_several_byte_characters_is_sent_whole() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = press_object("pushButton_Apply")});
    expect_information(robot, settings_applied);
    Shown_Change_Dialog dialog;
    find_child<QLineEdit>(dialog, "lineEdit_Name").setText(QString(16, QChar(0xfc)));
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    network.serve();
    QCOMPARE(network.frames_of("05").first().size(), 2 * (89 + 16));
    QCOMPARE(only_state(network).name, QByteArray("OSTREL"));
}

void Test_Change_Setting_Dialog::closed_after_a_failed_check_nothing_is_applied() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = apply("", "keller", "1234567")});
    expect_warning(robot, "Password is too long");
    robot.expect({.class_name = change_setting_class, .action = close_by_frame()});
    Shown_Change_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!dialog.is_settings_applied());
    QCOMPARE(dialog.get_username(), QString("admin"));
}

void Test_Change_Setting_Dialog::after_a_change_the_next_dialog_works_with_the_new_values() {
    Fast_Network network;
    network.add_adapter();
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = apply("", "", "geheim")});
    expect_information(robot, settings_applied);
    Shown_Change_Dialog first;
    first.exec();
    QVERIFY2(robot.done(), robot.why());
    robot.expect({.class_name = change_setting_class, .action = apply("EAST", "", "")});
    expect_information(robot, settings_applied);
    Shown_Change_Dialog second("127.0.0.2", first.get_username(), first.get_password(),
                               first.get_usr_name());
    second.exec();
    QVERIFY2(robot.done(), robot.why());
    network.serve();
    QCOMPARE(only_state(network).name, QByteArray("EAST"));
    QCOMPARE(only_state(network).password, QByteArray("geheim"));
}

void Test_Change_Setting_Dialog::escape_applies_nothing() {
    Modal_Robot robot;
    robot.expect({.class_name = change_setting_class, .action = press_key(Qt::Key_Escape)});
    Shown_Change_Dialog dialog;
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!dialog.is_settings_applied());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_Change_Setting_Dialog test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_change_setting_dialog.moc"
