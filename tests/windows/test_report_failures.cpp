// SPDX-License-Identifier: MIT

#include "sim/switch_report.h"
#include "tests/support/expect_box.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/sample_units.h"
#include "tests/support/wait_until.h"

#include <QTableWidget>
#include <QTest>

/// How the Lite handles incomplete reports: which keys may be missing without a message, which
/// cause the box, and how far the pages are filled by then.
class Test_Report_Failures : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_missing_key_that_shows_as_zero_or_off_raises_no_box();
    void a_missing_channel_key_leaves_its_box();
    void a_missing_port_limit_leaves_no_choice_and_raises_no_box();
    void a_missing_key_that_must_be_there_raises_the_box_data();
    void a_missing_key_that_must_be_there_raises_the_box();
    void a_custom_entry_shorter_than_its_columns_raises_the_box();
    void a_port_limit_that_is_no_number_raises_the_box_after_the_information();
    void a_port_limit_beyond_all_numbers_raises_the_box();
    void a_report_without_a_layout_line_fills_all_but_the_layout();
    void a_layout_key_that_is_missing_or_short_raises_the_box_data();
    void a_layout_key_that_is_missing_or_short_raises_the_box();
    void without_a_layout_line_the_report_counts_one_port_more_than_the_user();
    void replies_are_served_while_the_box_stands();
    void after_the_box_the_user_can_send_and_refresh();
    void a_failed_report_keeps_the_buffer();
    void a_report_that_was_read_empties_the_buffer();

private:
    void be_silent();
    void expect_box();
    void send_and_see_the_box(const QByteArray& text);
    int index_of(const QString& box) const { return lite->combo(box).currentIndex(); }
    QString text_of(const QString& label) const { return lite->label(label).text(); }
    /// The channels that the grid shows as inactive.
    QStringList inactive() const;

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

QByteArray other_report() {
    const Switch_State state = used_unit();
    return status_report(state) + information_report(state) + layout_report(state);
}

/// The report without the lines that contain a key.
QByteArray report_without(const QByteArray& key) {
    QByteArrayList lines;
    for (const QByteArray& line : other_report().split('\n')) {
        if (!line.contains(key)) {
            lines.append(line);
        }
    }
    return lines.join('\n');
}

} // namespace

void Test_Report_Failures::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    be_silent();
    lite->open();
}

void Test_Report_Failures::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Report_Failures::be_silent() {
    Fault_Plan plan;
    plan.silence = true;
    lite->device.set_faults(plan);
}

void Test_Report_Failures::expect_box() { expect_warning(*robot, "Setting data from TQL error"); }

void Test_Report_Failures::send_and_see_the_box(const QByteArray& text) {
    expect_box();
    lite->device.send(text);
    QVERIFY2(wait_until([&] { return robot->done(); }), robot->why());
}

QStringList Test_Report_Failures::inactive() const {
    QStringList names;
    const auto* grid = lite->window().findChild<QTableWidget*>("tableWidget");
    for (const QTableWidgetItem* tile : grid->findItems("INACTIVE", Qt::MatchContains)) {
        names.append(tile->text().left(9));
    }
    names.sort();
    return names;
}

void Test_Report_Failures::a_missing_key_that_shows_as_zero_or_off_raises_no_box() {
    QByteArray report = report_without("Current Hotkey Trigger: ");
    for (const char* key : {"Current parking location: X=", "KM Cursor Rolling: ",
                            "KM tracking mode: ", "Buzzer: "}) {
        const qsizetype start = report.indexOf(key);
        report.remove(start, report.indexOf('\n', start) - start);
    }
    lite->device.send(report);
    QVERIFY(lite->wait_filled());
    QCOMPARE(text_of("label_Current_Hotkey_Trigger_Data"), "0");
    QCOMPARE(lite->line_edit("lineEdit_MouseParking_x").text(), "0");
    QCOMPARE(lite->line_edit("lineEdit_MouseParking_y").text(), "0");
    QCOMPARE(index_of("comboBox_Enable_or_Disable_Cursor_Roll"), 0);
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 0);
    QVERIFY(lite->button("pushButton_ON_Beep").isEnabled());
    QVERIFY(!lite->button("pushButton_OFF_Beep").isEnabled());
    QCOMPARE(index_of("comboBox_KM_Control"), 2);
    QCOMPARE(index_of("comboBox_Select_active_port"), 1);
}

void Test_Report_Failures::a_missing_channel_key_leaves_its_box() {
    lite->device.send(report_without(" Control"));
    QVERIFY(lite->wait_filled());
    QCOMPARE(index_of("comboBox_KM_Control"), 0);
    QCOMPARE(index_of("comboBox_USB_Control"), 0);
    QCOMPARE(text_of("label_Current_Hotkey_Trigger_Data"), "Scroll Lock");
}

void Test_Report_Failures::a_missing_port_limit_leaves_no_choice_and_raises_no_box() {
    lite->device.send(report_without("KM Port Limit: "));
    QVERIFY(lite->wait_filled());
    QCOMPARE(index_of("comboBox_Select_active_port"), -1);
    QCOMPARE(inactive(), QStringList({"Channel 3", "Channel 4"}));
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 1);
    QCOMPARE(lite->commands(), question_list);
}

void Test_Report_Failures::a_missing_key_that_must_be_there_raises_the_box_data() {
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("names");
    QTest::newRow("first custom entry") << QByteArray("C1\t") << 0;
    QTest::newRow("second custom entry") << QByteArray("C2\t") << 1;
    QTest::newRow("third custom entry") << QByteArray("C3\t") << 2;
    QTest::newRow("fourth custom entry") << QByteArray("C4\t") << 3;
    QTest::newRow("resolutions") << QByteArray("Channels resolution:") << 4;
}

// The order of reading shows in what has been filled: information first, then ports, cursor and
// mode, then the custom names, their labels, the resolutions, and the buzzer last.
void Test_Report_Failures::a_missing_key_that_must_be_there_raises_the_box() {
    QFETCH(const QByteArray, key);
    QFETCH(const int, names);
    const QString label_before = text_of("label_Custom_1");
    // "Buzzer: off" would show.
    send_and_see_the_box(report_without(key).replace("Buzzer: on", "Buzzer: off"));
    QCOMPARE(text_of("label_Current_Hotkey_Trigger_Data"), "Scroll Lock");
    QCOMPARE(lite->line_edit("lineEdit_MouseParking_y").text(), "34");
    QCOMPARE(index_of("comboBox_USB_Control"), 1);
    QCOMPARE(index_of("comboBox_Select_active_port"), 1);
    QCOMPARE(index_of("comboBox_Enable_or_Disable_Cursor_Roll"), 1);
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 1);
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(lite->resolution(channel).count(), 9 + names);
        QCOMPARE(lite->resolution(channel).currentIndex(), 0);
    }
    QCOMPARE(text_of("label_Custom_1"), names == 4 ? "110 120 BANK" : label_before);
    // Both beep buttons are still as after connecting.
    QVERIFY(lite->button("pushButton_ON_Beep").isEnabled());
    QVERIFY(lite->button("pushButton_OFF_Beep").isEnabled());
    QCOMPARE(lite->commands(), question_list);
}

void Test_Report_Failures::a_custom_entry_shorter_than_its_columns_raises_the_box() {
    send_and_see_the_box(other_report().replace("C2\t210 220 TREE", "C2\t210 220"));
    QCOMPARE(lite->resolution(1).count(), 10);
}

void Test_Report_Failures::a_port_limit_that_is_no_number_raises_the_box_after_the_information() {
    send_and_see_the_box(other_report().replace("Port Limit: 3", "Port Limit: all"));
    QCOMPARE(text_of("label_Current_Hotkey_Trigger_Data"), "Scroll Lock");
    QCOMPARE(index_of("comboBox_KM_Control"), 2);
    QCOMPARE(index_of("comboBox_Select_active_port"), 0);
    QCOMPARE(index_of("comboBox_Enable_or_Disable_Cursor_Roll"), 0);
    QCOMPARE(lite->resolution(1).count(), 9);
}

void Test_Report_Failures::a_port_limit_beyond_all_numbers_raises_the_box() {
    send_and_see_the_box(other_report().replace("Port Limit: 3", "Port Limit: 99999999999"));
    QCOMPARE(index_of("comboBox_Select_active_port"), 0);
}

void Test_Report_Failures::a_report_without_a_layout_line_fills_all_but_the_layout() {
    send_and_see_the_box(report_without("//FF"));
    QVERIFY(lite->is_filled());
    QVERIFY(!lite->button("pushButton_ON_Beep").isEnabled());
    QCOMPARE(lite->resolution(3).currentIndex(), 12);
}

void Test_Report_Failures::a_layout_key_that_is_missing_or_short_raises_the_box_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("no fourth channel") << QByteArray("//FF01B01FF02B02FF03B03");
    QTest::newRow("no first channel") << QByteArray("//FF02B02FF03B03FF04B04");
    QTest::newRow("one digit at the end") << QByteArray("//FF01B01FF02B02FF03B03FF04B4");
    QTest::newRow("nothing behind the key") << QByteArray("//FF");
    QTest::newRow("no number") << QByteArray("//FF01BxxFF02B02FF03B03FF04B04");
}

void Test_Report_Failures::a_layout_key_that_is_missing_or_short_raises_the_box() {
    QFETCH(const QByteArray, line);
    send_and_see_the_box(other_report().replace("//FF01B05FF02B06FF03B07FF04B11", line));
    QVERIFY(lite->is_filled());
    QVERIFY(!lite->button("pushButton_ON_Beep").isEnabled());
}

void Test_Report_Failures::without_a_layout_line_the_report_counts_one_port_more_than_the_user() {
    send_and_see_the_box(report_without("//FF").replace("Port Limit: 3", "Port Limit: 2"));
    QCOMPARE(index_of("comboBox_Select_active_port"), 0);
    QCOMPARE(inactive(), QStringList{"Channel 4"});
    lite->combo("comboBox_Select_active_port").setCurrentIndex(2);
    QCOMPARE(inactive(), QStringList());
    lite->combo("comboBox_Select_active_port").setCurrentIndex(0);
    QCOMPARE(inactive(), QStringList({"Channel 3", "Channel 4"}));
}

void Test_Report_Failures::replies_are_served_while_the_box_stands() {
    robot->expect({.class_name = "QMessageBox",
                   .text = "Setting data from TQL error",
                   .action = [this](QWidget& box) {
                       const bool served = lite->say("**U 2\n");
                       const QString failure = press_button("OK")(box);
                       return served ? failure : QString("the notice was not served");
                   }});
    lite->device.send("//RL\n");
    QVERIFY2(wait_until([&] { return robot->done(); }), robot->why());
    QCOMPARE(index_of("comboBox_USB_Control"), 1);
}

void Test_Report_Failures::after_the_box_the_user_can_send_and_refresh() {
    // A report that fails within the lock-out of Refresh enables it again.
    expect_box();
    lite->device.send("//RL\n");
    QVERIFY(lite->wait_connected());
    lite->button("pushButton_Refresh").click();
    QCOMPARE(lite->commands(), question_list + question_list);
    QVERIFY2(wait_until([&] { return robot->done(); }), robot->why());
    lite->combo("comboBox_KM_Control").setCurrentIndex(1);
    // Before the 1700 ms are over, when the button is disabled.
    QVERIFY(lite->run_slot("on_pushButton_Refresh_clicked"));
    QCOMPARE(lite->commands(), QByteArrayList{"//c2"} + question_list);
}

void Test_Report_Failures::a_failed_report_keeps_the_buffer() {
    send_and_see_the_box("//RL\nchannel **C");
    QCOMPARE(index_of("comboBox_KM_Control"), 0);
    QVERIFY(lite->say(" 3\n"));
    QCOMPARE(index_of("comboBox_KM_Control"), 2);
}

void Test_Report_Failures::a_report_that_was_read_empties_the_buffer() {
    lite->device.send(report_without("Current KM Control: ") + "channel **C");
    QVERIFY(lite->wait_filled());
    QVERIFY(lite->say(" 3\n"));
    QCOMPARE(index_of("comboBox_KM_Control"), 0);
}

QTEST_MAIN(Test_Report_Failures)

#include "test_report_failures.moc"
