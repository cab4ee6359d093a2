// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "pages/combo_box.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"

#include <QTest>

/// What failing replies leave in the event log. On a Lite the log stays closed; here it is opened
/// for it, to see what the common code writes.
class Test_Lite_Log : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_channel_that_is_no_number_is_one_entry_with_the_exceptions_text();
    void an_empty_channel_leaves_the_box_and_no_entry();
    void a_failed_report_is_in_the_log_before_its_box_opens();
    void a_healthy_report_and_its_notices_leave_no_entry();
    void the_windows_end_closes_the_log();
    void without_anybody_opening_it_the_log_is_not_made();

private:
    std::unique_ptr<Log_Folder> folder;
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Lite_Log::init() {
    folder = std::make_unique<Log_Folder>();
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
}

void Test_Lite_Log::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    close_log();
    folder.reset();
}

void Test_Lite_Log::a_channel_that_is_no_number_is_one_entry_with_the_exceptions_text() {
    QCOMPARE(open_log(), 1);
    QVERIFY(lite->say("**C two\n"));
    QCOMPARE(folder->entries(), QStringList{"stoi"});
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 0);
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Lite_Log::an_empty_channel_leaves_the_box_and_no_entry() {
    QCOMPARE(open_log(), 1);
    QVERIFY(lite->say("Current KM Control: 3\n"));
    QVERIFY(lite->say("Current KM Control: \n"));
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 2);
    set_combo_from_text(lite->combo("comboBox_KM_Control"), "");
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 2);
    QCOMPARE(folder->entries(), QStringList());
}

void Test_Lite_Log::a_failed_report_is_in_the_log_before_its_box_opens() {
    QCOMPARE(open_log(), 1);
    QStringList logged_before_box;
    robot->expect({.text = "Setting data from TQL error",
                   .icon = QMessageBox::Warning,
                   .action = [&](QWidget& box) {
                       logged_before_box = folder->entries();
                       return press_button("OK")(box);
                   }});
    // No report has come before the question, so the buffer is empty and every key is missing.
    QVERIFY(lite->run_slot("get_data_from_TQL_by_serial_port"));
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(logged_before_box, QStringList{"Setting data from TQL error"});
}

void Test_Lite_Log::a_healthy_report_and_its_notices_leave_no_entry() {
    QCOMPARE(open_log(), 1);
    lite->button("pushButton_Refresh").click();
    QVERIFY(lite->wait_filled());
    QVERIFY(lite->say("**C 2\n"));
    QVERIFY(lite->say("**U 3\n"));
    QVERIFY(lite->say("**M 4\n"));
    QCOMPARE(folder->text(), "Start.........\n");
}

void Test_Lite_Log::the_windows_end_closes_the_log() {
    QCOMPARE(open_log(), 1);
    lite->close();
    QCOMPARE(folder->text(), "Start.........\nStop.........\n");
    write_log_line("too late");
    QCOMPARE(folder->text(), "Start.........\nStop.........\n");
}

void Test_Lite_Log::without_anybody_opening_it_the_log_is_not_made() {
    QVERIFY(lite->say("**C two\n"));
    lite->close();
    QVERIFY(!folder->has_log());
}

QTEST_MAIN(Test_Lite_Log)

#include "test_lite_log.moc"
