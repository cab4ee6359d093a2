// SPDX-License-Identifier: MIT

#include "tests/support/adapter_process.h"
#include "tests/support/expect_box.h"
#include "tests/support/private_network.h"
#include "tests/support/wait_until.h"
#include "tests/usr/ip_dialog_widgets.h"
#include "usr/change_setting_for_usr_dialog.h"
#include "usr/credentials_dialog.h"
#include "usr/select_hardware_dialog.h"
#include "usr/usr_configurator.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

/// The tool and an adapter in a separate process, in real time.
class Test_Adapter_Life : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void a_search_takes_its_fixed_time_and_serves_no_event();
    void each_unanswered_login_costs_a_search_and_its_wait();
    void a_login_answered_too_late_is_answered_for_the_next_try();
    void an_adapter_that_answers_behind_the_search_is_not_found();
    void an_adapter_is_moved_from_dhcp_to_static_renamed_and_found_again();
};

void Test_Adapter_Life::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Adapter_Life::a_search_takes_its_fixed_time_and_serves_no_event() {
    const Adapter_Process adapters({"--count", "3"});
    USR_searcher searcher;
    bool event_was_served = false;
    // Ends with the function, so that a late event does not write to the destroyed flag.
    const QObject while_it_searches;
    QTimer::singleShot(0, &while_it_searches, [&] { event_was_served = true; });
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(searcher.search_USR_in_network(), 1);
    QCOMPARE_GE(timer.elapsed(), 1499);
    QVERIFY(!event_was_served);
    QCOMPARE(searcher.get_USR_replies().size(), 3);
}

void Test_Adapter_Life::each_unanswered_login_costs_a_search_and_its_wait() {
    Adapter_Process adapter({"--silent-login", "2"});
    USR_configurator configurator("127.0.0.2", "admin", "admin");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(configurator.get_ip_allocation(), QString("00"));
    QCOMPARE_GE(timer.elapsed(), 3 * 2000 - 3);
    QCOMPARE(adapter.lines_with("login, kept silent").size(), 2);
    QCOMPARE(adapter.lines_with("login, answered").size(), 1);
    QCOMPARE(adapter.lines_with("search, answered").size(), 3);
}

void Test_Adapter_Life::a_login_answered_too_late_is_answered_for_the_next_try() {
    Adapter_Process adapter({"--delay", "700"});
    USR_configurator configurator("127.0.0.2", "admin", "admin");
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(configurator.get_ip_allocation(), QString("00"));
    QCOMPARE_GE(timer.elapsed(), 2 * 2000 - 3);
    QVERIFY(wait_until([&] { return adapter.lines_with("login, answered").size() == 2; }));
}

void Test_Adapter_Life::an_adapter_that_answers_behind_the_search_is_not_found() {
    const Adapter_Process adapter({"--delay", "1700"});
    USR_searcher searcher;
    QCOMPARE(searcher.search_USR_in_network(), -1);
    QCOMPARE(searcher.get_USR_replies(), QStringList());
}

void Test_Adapter_Life::an_adapter_is_moved_from_dhcp_to_static_renamed_and_found_again() {
    Adapter_Process adapter({"--name", "OSTREL", "--allocation", "dhcp"});
    Modal_Robot robot;
    robot.set_patience(std::chrono::seconds(30));

    Select_hardware_Dialog hardware;
    robot.expect(
        {.class_name = "Select_hardware_Dialog", .action = press_object("pushButton_Continue")});
    hardware.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(hardware.get_selected_ip(), QString("127.0.0.2"));

    Credentials_Dialog credentials(hardware.get_selected_ip(), hardware.get_USR_replies());
    robot.expect({.class_name = "Credentials_Dialog",
                  .action = in_order({type_into("lineEdit_username", "admin"),
                                      type_into("lineEdit_password", "admin"),
                                      press_object("pushButton_ip_allocation")})});
    credentials.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(credentials.get_ip_allocation(), QString("00"));

    IP_Settings_Dialog settings(hardware.get_selected_ip(), credentials.get_username(),
                                credentials.get_password(), credentials.get_ip_allocation());
    QVERIFY(Ip_Dialog_Widgets(settings).dhcp.isChecked());
    robot.expect({.class_name = "IP_Settings_Dialog",
                  .action = in_order({press_object("radioButton_Static"),
                                      type_into("lineEdit_IPv4_Address", "127.0.0.77"),
                                      press_object("pushButton_Apply_IP")})});
    expect_information(robot, "The IP was applied successfully");
    robot.expect({.class_name = "IP_Settings_Dialog",
                  .text = "127.0.0.77",
                  .action = press_object("pushButton_Connect")});
    settings.exec();
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(settings.get_current_ip(), QString("127.0.0.77"));
    QCOMPARE(settings.get_static_ip(), QString("127.0.0.77"));
    QCOMPARE(adapter.lines_with("127.0.0.77 came back").size(), 1);

    Change_setting_for_USR_Dialog admin(settings.get_current_ip(), settings.get_static_ip(),
                                        settings.get_subnet_mask(), settings.get_gateway(),
                                        settings.get_ip_allocation(), settings.get_username(),
                                        settings.get_password(), settings.get_usr_name());
    robot.expect({.class_name = "Change_setting_for_USR_Dialog",
                  .action = in_order({type_into("lineEdit_Name", "WEST WING"),
                                      type_into("lineEdit_Password", "geheim"),
                                      press_object("pushButton_Apply")})});
    expect_information(robot, "Settings were applied successfully");
    admin.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(wait_until([&] { return adapter.lines_with("127.0.0.77 came back").size() == 2; }));

    USR_configurator again("127.0.0.77", "admin", "geheim");
    QCOMPARE(again.get_ip_allocation(), QString("80"));
    QCOMPARE(again.get_usr_name(), QString("WEST WING"));
    QCOMPARE(adapter.lines_with("rejected"), QStringList());
    QCOMPARE(adapter.lines_with("refused"), QStringList());
}

int main(int argc, char** argv) {
    return run_test_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        Test_Adapter_Life test;
        return QTest::qExec(&test, count, values);
    });
}
#include "test_adapter_life.moc"
