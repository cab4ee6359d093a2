// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/support/debug_lines.h"
#include "tests/support/layout_table.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <stdexcept>

namespace {

bool reading_the_grid_fails = false;

} // namespace

// The linker redirects the calls of QTableWidget::item() to here (see CMakeLists.txt): the scan of
// the grid can fail on demand, which no input can cause.
QTableWidgetItem* real_item(const QTableWidget* table, int row,
                            int column) __asm__("__real__ZNK12QTableWidget4itemEii");
QTableWidgetItem* failing_item(const QTableWidget* table, int row,
                               int column) __asm__("__wrap__ZNK12QTableWidget4itemEii");

QTableWidgetItem* failing_item(const QTableWidget* table, int row, int column) {
    if (reading_the_grid_fails && row == 0 && column == 2) {
        throw std::runtime_error("no tile to be had");
    }
    return real_item(table, row, column);
}

/// Failures while a switch's texts or the grid are read: which text is logged, shown or neither,
/// and what works afterwards, on all three windows. A Lite's log is closed; here it is opened for
/// it, to see what the common code writes.
class Test_Model_Report_Failures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_report_that_lacks_a_key_is_logged_then_shown_and_arms_refresh();
    void a_developer_is_told_which_key_is_missing_data();
    void a_developer_is_told_which_key_is_missing();
    void a_channel_that_is_no_number_is_logged_and_not_shown();
    void a_grid_that_can_not_be_read_is_logged_and_put_back();

private:
    [[nodiscard]] QByteArrayList questions() const;

    Switch_Model tested = Switch_Model::lite;
    std::unique_ptr<Log_Folder> folder;
    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Window_Fixture> fixture;
};

void Test_Model_Report_Failures::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    tested = model;
    folder = std::make_unique<Log_Folder>();
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
    if (tested == Switch_Model::lite) {
        QCOMPARE(open_log(), 1);
    }
    QVERIFY(fixture->open_filled());
    QCOMPARE(folder->entries(), QStringList());
}

void Test_Model_Report_Failures::cleanup() {
    reading_the_grid_fails = false;
    fixture.reset();
    folder.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList{});
}

QByteArrayList Test_Model_Report_Failures::questions() const {
    QByteArrayList all = {"//rl", "//??", "//BP"};
    if (tested == Switch_Model::pro) {
        all.append("//QA");
    }
    return all;
}

void Test_Model_Report_Failures::a_report_that_lacks_a_key_is_logged_then_shown_and_arms_refresh() {
    const QString failure = "Setting data from TQL error";
    Fault_Plan lacking;
    lacking.missing_key = "Channels resolution:";
    fixture->device.set_faults(lacking);
    QStringList logged_before_box;
    QByteArrayList sent_beside_box;
    robot->expect({.class_name = "QMessageBox",
                   .title = "Information",
                   .text = failure,
                   .icon = QMessageBox::Warning,
                   .buttons = QStringList{"OK"},
                   .action = [&](QWidget& box) {
                       logged_before_box = folder->entries();
                       // A change counts as made by the program until the box is answered.
                       fixture->combo("comboBox_USB_Control").setCurrentIndex(3);
                       sent_beside_box = fixture->commands();
                       return press_button("OK")(box);
                   }});
    fixture->button("pushButton_Refresh").click();
    QCOMPARE(fixture->commands(), questions());
    QVERIFY(wait_until([this] { return robot->done(); }));
    QCOMPARE(logged_before_box, QStringList{failure});
    QCOMPARE(sent_beside_box, QByteArrayList());
    // The lock-out of 1700 ms is not over, but the next click sends the questions nevertheless.
    fixture->device.set_faults({});
    QVERIFY(fixture->run_slot("on_pushButton_Refresh_clicked"));
    QCOMPARE(fixture->commands(), questions());
    QVERIFY(fixture->wait_filled());
    fixture->combo("comboBox_USB_Control").setCurrentIndex(2);
    QCOMPARE(fixture->commands(), QByteArrayList{"//u3"});
    QCOMPARE(folder->entries(), QStringList{failure});
}

void Test_Model_Report_Failures::a_developer_is_told_which_key_is_missing_data() {
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("resolutions") << QByteArray("Channels resolution:")
                                 << QByteArray("no resolutions behind Channels resolution:");
    QTest::newRow("first entry") << QByteArray("C1\t") << QByteArray("no custom entry behind C1\t");
    QTest::newRow("last entry") << QByteArray("C4\t") << QByteArray("no custom entry behind C4\t");
}

void Test_Model_Report_Failures::a_developer_is_told_which_key_is_missing() {
    QFETCH(const QByteArray, key);
    QFETCH(const QByteArray, words);
    Fault_Plan lacking;
    lacking.missing_key = key;
    fixture->device.set_faults(lacking);
    robot->expect({.class_name = "QMessageBox",
                   .text = "Setting data from TQL error",
                   .action = press_button("OK")});
    const Debug_Lines debug_lines;
    QTest::ignoreMessage(QtDebugMsg, "Setting data from TQL error because: " + words);
    fixture->button("pushButton_Refresh").click();
    QVERIFY(wait_until([this] { return robot->done(); }));
    QCOMPARE(folder->entries(), QStringList{"Setting data from TQL error"});
}

void Test_Model_Report_Failures::a_channel_that_is_no_number_is_logged_and_not_shown() {
    const qsizetype boxes = robot->snapshots().size();
    QVERIFY(fixture->say("**C two\n"));
    QCOMPARE(folder->entries(), QStringList{"stoi"});
    QVERIFY(fixture->say("**U 99999999999\n"));
    QCOMPARE(folder->entries(), QStringList({"stoi", "stoi"}));
    // One value for two boxes.
    QVERIFY(fixture->say("**M \n"));
    QCOMPARE(folder->entries(), QStringList({"stoi", "stoi", "stoi", "stoi"}));
    QCOMPARE(robot->snapshots().size(), boxes);
    QCOMPARE(fixture->combo("comboBox_KM_Control").currentIndex(), 0);
    QCOMPARE(fixture->combo("comboBox_USB_Control").currentIndex(), 0);
    // The user's changes are sent again.
    fixture->combo("comboBox_KM_Control").setCurrentIndex(2);
    QCOMPARE(fixture->commands(), QByteArrayList{"//c3"});
}

void Test_Model_Report_Failures::a_grid_that_can_not_be_read_is_logged_and_put_back() {
    const qsizetype boxes = robot->snapshots().size();
    const Layout_Table table(*fixture);
    // What a drop on a free cell does.
    QTableWidgetItem* tile = table.widget.takeItem(0, 3);
    reading_the_grid_fails = true;
    table.widget.setItem(2, 3, tile);
    reading_the_grid_fails = false;
    QCOMPARE(folder->entries(), QStringList({"no tile to be had", "Topology setting error"}));
    QCOMPARE(table.picture(), "1234/..../..../....");
    QCOMPARE(robot->snapshots().size(), boxes);
    // The next drop is accepted.
    tile = table.widget.takeItem(0, 3);
    table.widget.setItem(1, 3, tile);
    QCOMPARE(table.picture(), "123./...4/..../....");
    QCOMPARE(folder->entries().size(), 2);
    QCOMPARE(fixture->commands(), QByteArrayList());
}

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Test_Model_Report_Failures test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_model_report_failures.moc"
