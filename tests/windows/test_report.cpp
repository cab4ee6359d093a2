// SPDX-License-Identifier: MIT

#include "sim/switch_report.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/sample_units.h"
#include "tests/support/wait_until.h"

#include <QTableWidget>
#include <QTest>

/// What a report of the switch writes into the Lite's pages, above all the first one, and how the
/// Lite handles faulty reports. The tests send the texts in place of a silent switch.
class Test_Report : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_report_fills_every_field_of_the_page();
    void a_report_that_changes_everything_sends_nothing();
    void after_a_report_the_user_can_send();
    void a_second_report_replaces_the_first();
    void keys_are_found_inside_longer_lines_and_in_any_order();
    void the_first_occurrence_of_a_key_wins();
    void a_channel_of_zero_leaves_the_box_as_it_was();
    void resolutions_take_fixed_and_custom_numbers();
    void a_fifth_resolution_is_ignored();
    void grid_positions_are_counted_row_by_row();
    void carriage_returns_spoil_the_whole_value_comparisons_only();
    void any_other_buzzer_text_means_off();
    void words_in_other_letters_mean_off();
    void a_usb_line_with_a_colon_is_set_by_the_notice();
    void a_channel_that_is_no_number_leaves_the_box_without_a_box();
    void markup_in_a_report_is_shown_as_its_characters();
    void extreme_numbers_are_taken_without_harm();

private:
    /// Opens the window and sends a text as the answer to its questions.
    void open_and_say(const QByteArray& report);
    void fill_with(const QByteArray& report);
    int index_of(const QString& box) const { return lite->combo(box).currentIndex(); }
    QString hotkey() const { return lite->label("label_Current_Hotkey_Trigger_Data").text(); }
    QString parking() const {
        return lite->line_edit("lineEdit_MouseParking_x").text() + '|' +
               lite->line_edit("lineEdit_MouseParking_y").text();
    }
    QList<int> resolutions() const {
        return {lite->resolution(1).currentIndex(), lite->resolution(2).currentIndex(),
                lite->resolution(3).currentIndex(), lite->resolution(4).currentIndex()};
    }
    /// Which of the two beep buttons is disabled.
    QString buzzer() const;

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

/// Every setting different from its initial value.
Switch_State other_state() {
    Switch_State state = used_unit();
    state.buzzer = false;
    return state;
}

QByteArray whole_report(const Switch_State& state) {
    return status_report(state) + information_report(state) + layout_report(state);
}

/// A complete report in which one line is replaced by another.
QByteArray report_with(const QByteArray& line, const QByteArray& in_place_of) {
    QByteArray report = whole_report(Switch_State());
    if (!report.contains(line)) {
        qFatal("No line \"%s\" in the report", line.constData());
    }
    return report.replace(line, in_place_of);
}

} // namespace

void Test_Report::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    Fault_Plan plan;
    plan.silence = true;
    lite->device.set_faults(plan);
}

void Test_Report::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Report::open_and_say(const QByteArray& report) {
    lite->open();
    lite->device.send(report);
}

void Test_Report::fill_with(const QByteArray& report) {
    open_and_say(report);
    QVERIFY(lite->wait_filled());
    lite->device.clear_record();
}

QString Test_Report::buzzer() const {
    const bool on_is_enabled = lite->button("pushButton_ON_Beep").isEnabled();
    const bool off_is_enabled = lite->button("pushButton_OFF_Beep").isEnabled();
    if (on_is_enabled == off_is_enabled) {
        return "undecided";
    }
    return off_is_enabled ? "on" : "off";
}

void Test_Report::a_report_fills_every_field_of_the_page() {
    fill_with(whole_report(other_state()));
    QCOMPARE(hotkey(), "Scroll Lock");
    QCOMPARE(index_of("comboBox_KM_Control"), 2);
    QCOMPARE(index_of("comboBox_USB_Control"), 1);
    QCOMPARE(parking(), "12|34");
    QCOMPARE(index_of("comboBox_Select_active_port"), 1);
    QCOMPARE(index_of("comboBox_Enable_or_Disable_Cursor_Roll"), 1);
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 1);
    QCOMPARE(buzzer(), "off");
    QCOMPARE(resolutions(), QList<int>({1, 9, 12, 8}));
    QCOMPARE(lite->label("label_Custom_4").text(), "410 420 SOFA");
    QCOMPARE(lite->line_edit("lineEdit_Mouse_Movement_Name").text(), "BANK");
}

void Test_Report::a_report_that_changes_everything_sends_nothing() {
    lite->open();
    QCOMPARE(lite->commands().size(), 3);
    lite->device.send(whole_report(other_state()));
    QVERIFY(lite->wait_filled());
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 1);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Report::after_a_report_the_user_can_send() {
    fill_with(whole_report(other_state()));
    lite->combo("comboBox_Enable_or_Disable_Cursor_Roll").setCurrentIndex(0);
    QCOMPARE(lite->commands(), QByteArrayList{"//o0"});
}

void Test_Report::a_second_report_replaces_the_first() {
    fill_with(whole_report(other_state()));
    lite->button("pushButton_Refresh").click();
    QVERIFY(!lite->is_filled());
    lite->device.send(whole_report(Switch_State()));
    QVERIFY(lite->wait_filled());
    QCOMPARE(hotkey(), "Left Ctrl");
    QCOMPARE(index_of("comboBox_KM_Control"), 0);
    QCOMPARE(index_of("comboBox_Select_active_port"), 2);
    QCOMPARE(buzzer(), "on");
    QCOMPARE(resolutions(), QList<int>({0, 0, 0, 0}));
}

void Test_Report::keys_are_found_inside_longer_lines_and_in_any_order() {
    QByteArray report = layout_report(Switch_State()) + information_report(Switch_State()) +
                        status_report(Switch_State());
    report.replace("KM Port Limit: 4", "unit 7, KM Port Limit: 3 of 4");
    report.replace("Current KM Control: 1", "as of now, Current KM Control: 2 (was 1)");
    report.replace("Current Hotkey", "The Current Hotkey");
    fill_with(report);
    QCOMPARE(index_of("comboBox_Select_active_port"), 1);
    QCOMPARE(index_of("comboBox_KM_Control"), 1);
    QCOMPARE(hotkey(), "Left Ctrl");
}

void Test_Report::the_first_occurrence_of_a_key_wins() {
    fill_with("Buzzer: off\nKM Port Limit: 2\nY=77\n" + whole_report(Switch_State()));
    QCOMPARE(buzzer(), "off");
    QCOMPARE(index_of("comboBox_Select_active_port"), 0);
    QCOMPARE(parking(), "50|77");
}

void Test_Report::a_channel_of_zero_leaves_the_box_as_it_was() {
    fill_with(whole_report(other_state()));
    lite->button("pushButton_Refresh").click();
    QByteArray report = whole_report(Switch_State());
    report.replace("KM Control: 1", "KM Control: 0");
    report.replace("USB Control 1", "USB Control 0");
    lite->device.send(report);
    QVERIFY(lite->wait_filled());
    QCOMPARE(hotkey(), "Left Ctrl");
    QCOMPARE(index_of("comboBox_KM_Control"), 2);
    QCOMPARE(index_of("comboBox_USB_Control"), 1);
}

void Test_Report::resolutions_take_fixed_and_custom_numbers() {
    fill_with(report_with("resolution: 1 1 1 1", "resolution: 1 C2 3 4"));
    QCOMPARE(resolutions(), QList<int>({0, 10, 2, 3}));
}

void Test_Report::a_fifth_resolution_is_ignored() {
    fill_with(report_with("resolution: 1 1 1 1", "resolution: 2 3 4 5 6 7 8 9"));
    QCOMPARE(resolutions(), QList<int>({1, 2, 3, 4}));
}

void Test_Report::grid_positions_are_counted_row_by_row() {
    fill_with(report_with("//FF01B01FF02B02FF03B03FF04B04", "//FF01B09FF02B16FF03B01FF04B04"));
    const auto* grid = lite->window().findChild<QTableWidget*>("tableWidget");
    const auto text = [grid](int row, int column) {
        const QTableWidgetItem* tile = grid->item(row, column);
        return tile != nullptr ? tile->text() : QString("no tile");
    };
    QCOMPARE(text(2, 0), "Channel 1");
    QCOMPARE(text(3, 3), "Channel 2");
    QCOMPARE(text(0, 0), "Channel 3");
    QCOMPARE(text(0, 3), "Channel 4");
    QCOMPARE(text(0, 1), "no tile");
}

void Test_Report::carriage_returns_spoil_the_whole_value_comparisons_only() {
    Switch_State state = other_state();
    state.buzzer = true;
    fill_with(whole_report(state).replace("\n", "\r\n"));
    QCOMPARE(index_of("comboBox_Enable_or_Disable_Cursor_Roll"), 0);
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 0);
    QCOMPARE(buzzer(), "off");
    QCOMPARE(index_of("comboBox_KM_Control"), 2);
    QCOMPARE(index_of("comboBox_USB_Control"), 1);
    QCOMPARE(index_of("comboBox_Select_active_port"), 1);
    QCOMPARE(resolutions(), QList<int>({1, 9, 12, 8}));
    QCOMPARE(hotkey(), "Scroll Lock\r");
    QCOMPARE(parking(), "12|34\r");
}

void Test_Report::any_other_buzzer_text_means_off() {
    fill_with(report_with("Buzzer: on", "Buzzer: on and on"));
    QCOMPARE(buzzer(), "off");
}

void Test_Report::words_in_other_letters_mean_off() {
    QByteArray report = whole_report(other_state());
    report.replace("Enabled", "enabled").replace("Relative Mouse Mode", "Relative mouse mode");
    report.replace("Buzzer: off", "Buzzer: On");
    fill_with(report);
    QCOMPARE(index_of("comboBox_Enable_or_Disable_Cursor_Roll"), 0);
    QCOMPARE(index_of("comboBox_Select_Display_Mode"), 0);
    QCOMPARE(buzzer(), "off");
}

void Test_Report::a_usb_line_with_a_colon_is_set_by_the_notice() {
    open_and_say(report_with("USB Control 1", "USB Control: 3"));
    QVERIFY(wait_until([&] { return lite->terminal_text().contains("FF04B04"); }));
    QCOMPARE(index_of("comboBox_USB_Control"), 2);
    QVERIFY(lite->wait_filled());
    QCOMPARE(index_of("comboBox_USB_Control"), 2);
}

void Test_Report::a_channel_that_is_no_number_leaves_the_box_without_a_box() {
    QByteArray report = whole_report(Switch_State());
    report.replace("KM Control: 1", "KM Control: one").replace("USB Control 1", "USB Control -");
    fill_with(report);
    QCOMPARE(index_of("comboBox_KM_Control"), 0);
    QCOMPARE(index_of("comboBox_USB_Control"), 0);
    QCOMPARE(hotkey(), "Left Ctrl");
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Report::markup_in_a_report_is_shown_as_its_characters() {
    const QByteArray markup = "<b>Left</b><img src=\"file:///nowhere.png\">&amp;";
    QByteArray report = whole_report(Switch_State());
    report.replace("Left Ctrl", markup).replace("DESK", "<i>DESK</i>");
    fill_with(report);
    const QLabel& trigger = lite->label("label_Current_Hotkey_Trigger_Data");
    QCOMPARE(trigger.text(), QString(markup));
    QCOMPARE(trigger.textFormat(), Qt::PlainText);
    const QLabel& custom = lite->label("label_Custom_1");
    QCOMPARE(custom.text(), "100 100 <i>DESK</i>");
    QCOMPARE(custom.textFormat(), Qt::PlainText);
    QCOMPARE(lite->resolution(1).itemText(9), "<i>DESK</i>");
}

void Test_Report::extreme_numbers_are_taken_without_harm() {
    struct Row {
        const char* number;
        int port_index; ///< of the box of active ports
    };
    // One less than the smallest number has no item, so the box keeps its first item.
    const QList<Row> rows{{"2147483647", -1}, {"-2147483648", 0}, {"5", -1}, {"-1", -1}};
    for (const Row& row : rows) {
        lite = std::make_unique<Lite_Fixture>();
        Fault_Plan plan;
        plan.silence = true;
        lite->device.set_faults(plan);
        QByteArray report = whole_report(Switch_State());
        report.replace("KM Control: 1", QByteArray("KM Control: ") + row.number);
        report.replace("USB Control 1", QByteArray("USB Control ") + row.number);
        report.replace("Port Limit: 4", QByteArray("Port Limit: ") + row.number);
        report.replace("resolution: 1 1 1 1", "resolution: C9 C0 0 C/");
        fill_with(report);
        QCOMPARE(index_of("comboBox_KM_Control"), -1);
        QCOMPARE(index_of("comboBox_USB_Control"), -1);
        QCOMPARE(index_of("comboBox_Select_active_port"), row.port_index);
        QCOMPARE(hotkey(), "Left Ctrl");
    }
}

QTEST_MAIN(Test_Report)

#include "test_report.moc"
