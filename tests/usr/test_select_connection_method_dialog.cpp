// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/support/expect_box.h"
#include "tests/support/find_child.h"
#include "usr/select_connection_method_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

/// The first dialog of the wizard.
class Test_Select_Connection_Method_Dialog : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void it_has_its_size_title_and_icon();
    void it_starts_with_tcp_ip_checked_and_no_flag_up();
    void making_it_opens_the_event_log();
    void without_the_logs_folder_no_file_appears();
    void continue_takes_the_checked_method_and_ends_the_dialog_data();
    void continue_takes_the_checked_method_and_ends_the_dialog();
    void a_later_choice_replaces_the_earlier_one();
    void the_frames_close_button_sets_the_flag_alone();
    void a_closed_dialog_can_be_used_again();
    void escape_ends_it_without_any_flag();
    void continue_without_a_method_warns_and_stays_open();
    void the_radio_buttons_keep_their_state_between_showings();
};

namespace {

constexpr const char* class_name = "Select_connection_method_Dialog";

/// Shows the dialog and does the actions in order.
QString run(Select_connection_method_Dialog& dialog, const std::vector<Modal_Action>& actions) {
    Modal_Robot robot;
    robot.expect({.class_name = class_name, .action = in_order(actions)});
    dialog.exec();
    return robot.failures().join('\n');
}

} // namespace

void Test_Select_Connection_Method_Dialog::cleanup() {
    close_log();
    QCOMPARE(windows_left(), QStringList());
}

void Test_Select_Connection_Method_Dialog::it_has_its_size_title_and_icon() {
    const Select_connection_method_Dialog dialog;
    QCOMPARE(dialog.minimumSize(), QSize(405, 170));
    QCOMPARE(dialog.maximumSize(), QSize(405, 170));
    QCOMPARE(dialog.windowTitle(), QString("Velmoran Ostrel"));
    QVERIFY(!dialog.windowIcon().isNull());
}

void Test_Select_Connection_Method_Dialog::it_starts_with_tcp_ip_checked_and_no_flag_up() {
    const Select_connection_method_Dialog dialog;
    QVERIFY(find_child<QRadioButton>(dialog, "radioButton_TCP_IP").isChecked());
    QVERIFY(!find_child<QRadioButton>(dialog, "radioButton_RS232").isChecked());
    QVERIFY(!dialog.is_closed_by_user());
    QVERIFY(!dialog.is_tcp_ip_selected());
    QVERIFY(!dialog.is_rs232_selected());
}

void Test_Select_Connection_Method_Dialog::making_it_opens_the_event_log() {
    const QTemporaryDir place;
    const QString earlier = QDir::currentPath();
    QVERIFY(QDir::setCurrent(place.path()));
    const char* const folder = R"(C:\Users\Public\Documents)";
    QVERIFY(QDir().mkdir(folder));
    { const Select_connection_method_Dialog dialog; }
    QFile log(QString(folder) + "/KM_log.txt");
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll(), QByteArray("Start.........\n"));
    QVERIFY(QDir::setCurrent(earlier));
}

void Test_Select_Connection_Method_Dialog::without_the_logs_folder_no_file_appears() {
    const QTemporaryDir place;
    const QString earlier = QDir::currentPath();
    QVERIFY(QDir::setCurrent(place.path()));
    const Select_connection_method_Dialog dialog;
    QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    QVERIFY(QDir::setCurrent(earlier));
}

void Test_Select_Connection_Method_Dialog::
    continue_takes_the_checked_method_and_ends_the_dialog_data() {
    QTest::addColumn<QString>("radio_button");
    QTest::addColumn<bool>("is_tcp_ip");
    QTest::newRow("TCP/IP") << "radioButton_TCP_IP" << true;
    QTest::newRow("RS-232") << "radioButton_RS232" << false;
}

void Test_Select_Connection_Method_Dialog::continue_takes_the_checked_method_and_ends_the_dialog() {
    QFETCH(const QString, radio_button);
    QFETCH(const bool, is_tcp_ip);
    Select_connection_method_Dialog dialog;
    QCOMPARE(run(dialog, {press_object(radio_button), press_object("pushButton_continue")}),
             QString());
    QCOMPARE(dialog.is_tcp_ip_selected(), is_tcp_ip);
    QCOMPARE(dialog.is_rs232_selected(), !is_tcp_ip);
    QVERIFY(!dialog.is_closed_by_user());
    QVERIFY(!dialog.isVisible());
}

void Test_Select_Connection_Method_Dialog::a_later_choice_replaces_the_earlier_one() {
    Select_connection_method_Dialog dialog;
    run(dialog, {press_object("radioButton_RS232"), press_object("pushButton_continue")});
    QVERIFY(dialog.is_rs232_selected());
    run(dialog, {press_object("radioButton_TCP_IP"), press_object("pushButton_continue")});
    QVERIFY(dialog.is_tcp_ip_selected());
    QVERIFY(!dialog.is_rs232_selected());
}

void Test_Select_Connection_Method_Dialog::the_frames_close_button_sets_the_flag_alone() {
    Select_connection_method_Dialog dialog;
    QCOMPARE(run(dialog, {close_by_frame()}), QString());
    QVERIFY(dialog.is_closed_by_user());
    QVERIFY(!dialog.is_tcp_ip_selected());
    QVERIFY(!dialog.is_rs232_selected());
}

void Test_Select_Connection_Method_Dialog::a_closed_dialog_can_be_used_again() {
    Select_connection_method_Dialog dialog;
    run(dialog, {close_by_frame()});
    QCOMPARE(run(dialog, {press_object("pushButton_continue")}), QString());
    QVERIFY(!dialog.is_closed_by_user());
    QVERIFY(dialog.is_tcp_ip_selected());
}

void Test_Select_Connection_Method_Dialog::escape_ends_it_without_any_flag() {
    Select_connection_method_Dialog dialog;
    QCOMPARE(run(dialog, {press_key(Qt::Key_Escape)}), QString());
    QVERIFY(!dialog.isVisible());
    QVERIFY(!dialog.is_closed_by_user());
    QVERIFY(!dialog.is_tcp_ip_selected());
    QVERIFY(!dialog.is_rs232_selected());
}

void Test_Select_Connection_Method_Dialog::continue_without_a_method_warns_and_stays_open() {
    Select_connection_method_Dialog dialog;
    // The form alone never reaches this state.
    for (const char* name : {"radioButton_TCP_IP", "radioButton_RS232"}) {
        auto& button = find_child<QRadioButton>(dialog, name);
        button.setAutoExclusive(false);
        button.setChecked(false);
    }
    Modal_Robot robot;
    robot.expect({.class_name = class_name, .action = press_object("pushButton_continue")});
    expect_warning(robot, "Select connection method");
    robot.expect({.class_name = class_name, .action = close_by_frame()});
    dialog.exec();
    QVERIFY2(robot.done(), robot.why());
    QVERIFY(!dialog.is_tcp_ip_selected());
    QVERIFY(!dialog.is_rs232_selected());
}

void Test_Select_Connection_Method_Dialog::the_radio_buttons_keep_their_state_between_showings() {
    Select_connection_method_Dialog dialog;
    run(dialog, {press_object("radioButton_RS232"), press_object("pushButton_continue")});
    QCOMPARE(run(dialog, {press_object("pushButton_continue")}), QString());
    QVERIFY(dialog.is_rs232_selected());
    QVERIFY(find_child<QRadioButton>(dialog, "radioButton_RS232").isChecked());
}

QTEST_MAIN(Test_Select_Connection_Method_Dialog)
#include "test_select_connection_method_dialog.moc"
