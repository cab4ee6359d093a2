// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/log_folder.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"

#include <QFile>
#include <QRegularExpression>

/// The event log of a Plus and a Pro on the network link.
class Test_Network_Log : public Network_Test {
    Q_OBJECT

private slots:
    void a_run_without_failures_leaves_two_lines();
    void the_log_is_open_before_the_first_dialog();
    void a_failure_stands_between_the_two_lines_and_is_there_at_once();
    void failures_of_the_wizard_stand_in_the_log();
    void a_second_run_empties_the_log_of_the_first();
    void without_the_folder_no_file_appears();
};

namespace {

const QByteArray two_lines = "Start.........\nStop.........\n";

} // namespace

void Test_Network_Log::a_run_without_failures_leaves_two_lines() {
    const Log_Folder folder;
    QVERIFY(at->open_network());
    at->button("pushButton_Refresh").click();
    QVERIFY(at->wait_filled());
    at->button("pushButton_OFF_Connection").click();
    at->button("pushButton_ON_Connection").click();
    QVERIFY(at->wait_filled());
    QCOMPARE(folder.text(), QByteArray("Start.........\n"));
    at->close();
    QCOMPARE(folder.text(), two_lines);
}

void Test_Network_Log::the_log_is_open_before_the_first_dialog() {
    const Log_Folder folder;
    QByteArray text;
    at->robot.expect({.class_name = "Select_connection_method_Dialog",
                      .action = in_order({[&](QWidget&) {
                                              text = folder.text();
                                              return QString();
                                          },
                                          close_by_frame()})});
    at->open();
    QCOMPARE(text, QByteArray("Start.........\n"));
    at->close();
    QCOMPARE(folder.text(), two_lines);
}

void Test_Network_Log::a_failure_stands_between_the_two_lines_and_is_there_at_once() {
    const Log_Folder folder;
    QVERIFY(at->open_silent());
    QStringList while_the_box_stands;
    at->robot.expect({.class_name = "QMessageBox",
                      .title = "Information",
                      .text = report_failure,
                      .icon = QMessageBox::Warning,
                      .action = in_order({[&](QWidget&) {
                                              while_the_box_stands = folder.entries();
                                              return QString();
                                          },
                                          press_button("OK")})});
    at->adapter.send_from_switch(at->report().first(at->report().indexOf("C1\t")));
    QVERIFY(wait_until([&] { return at->robot.done(); }));
    QCOMPARE(while_the_box_stands, QStringList(report_failure));
    at->close();
    const QRegularExpression form(
        R"(\AStart\.{9}\nSetting data from TQL error   \d{4}-\d\d-\d\d \d\d:\d\d:\d\d\nStop\.{9}\n\z)");
    QVERIFY2(form.match(folder.text()).hasMatch(), folder.text().constData());
}

void Test_Network_Log::failures_of_the_wizard_stand_in_the_log() {
    const Log_Folder folder;
    at->expect_network_path(2);
    at->expect_login_without_credentials();
    at->robot.expect(close_dialog("IP_Settings_Dialog"));
    at->open();
    QVERIFY2(at->robot.done(), at->robot.why());
    at->close();
    const QStringList readings = {"Get static IP error", "Get subnet mask error",
                                  "Get gateway error"};
    QCOMPARE(folder.entries(), readings + readings);
}

void Test_Network_Log::a_second_run_empties_the_log_of_the_first() {
    const Log_Folder folder;
    QFile earlier(folder.log_path());
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write("Start.........\nSearch USR error   2024-01-01 10:00:00\n");
    earlier.close();
    QVERIFY(at->open_network());
    QCOMPARE(folder.text(), QByteArray("Start.........\n"));
    at->close();
    QCOMPARE(folder.text(), two_lines);
    QVERIFY(at->open_network());
    QCOMPARE(folder.text(), QByteArray("Start.........\n"));
    at->close();
    QCOMPARE(folder.text(), two_lines);
}

void Test_Network_Log::without_the_folder_no_file_appears() {
    const Log_Folder folder(Log_Folder::Folder::missing);
    QVERIFY(at->open_silent());
    expect_warning(at->robot, report_failure);
    at->adapter.send_from_switch(at->report().first(at->report().indexOf("C1\t")));
    QVERIFY(wait_until([&] { return at->robot.done(); }));
    at->close();
    QCOMPARE(folder.names(), QStringList());
}

int main(int argc, char** argv) { return run_network_test<Test_Network_Log>(argc, argv); }
#include "test_network_log.moc"
