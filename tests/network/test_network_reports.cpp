// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/find_child.h"
#include "tests/support/network_test.h"
#include "tests/support/sample_units.h"
#include "tests/support/wait_until.h"

#include <QCheckBox>

/// How the windows handle the chunks that arrive on the network link.
class Test_Network_Reports : public Network_Test {
    Q_OBJECT

private slots:
    void a_report_in_one_chunk_is_applied_at_once();
    void a_split_report_is_an_error_and_its_rest_is_only_shown();
    void what_comes_in_while_a_box_stands_is_shown_and_not_the_end();
    void a_datagram_heard_of_before_off_and_taken_behind_it_does_no_harm();
    void what_is_pending_together_is_one_chunk();
    void a_chunk_of_the_longest_datagram_comes_whole();
    void a_refusal_hides_no_report_behind_it();
    void an_adapter_that_splits_is_healed_by_a_refresh_in_one_piece();
    void a_first_chunk_without_a_marker_is_applied_but_not_shown();
    void chunks_after_the_first_marker_are_all_shown();
    void markup_in_a_reply_is_shown_as_its_characters();
    void what_follows_a_nul_byte_is_lost_for_all_steps();
    void a_lone_nul_byte_does_nothing();
    void a_notice_sets_its_boxes_and_sends_nothing_data();
    void a_notice_sets_its_boxes_and_sends_nothing();
    void the_answer_to_a_resolution_is_no_notice();
    void a_notice_in_two_chunks_is_not_put_together();
    void the_last_reader_of_a_chunk_wins_in_the_models_order();
    void the_pro_reads_audio_from_a_chunk();
    void a_confirmed_layout_is_read_from_the_next_chunk_whatever_the_time();
    void a_submitted_layout_comes_back_into_the_grid();
    void a_user_change_sends_its_command_and_its_notice_echoes_nothing();
    void a_silent_switch_leaves_the_window_open_and_red();

private:
    /// Sends a chunk and waits until the terminal shows it after its earlier text.
    bool say(const QByteArray& chunk) {
        const QString shown = at->terminal_text() + QString::fromUtf8(chunk);
        at->adapter.send_from_switch(chunk);
        return wait_until([&] { return at->terminal_text() == shown; }, 2000);
    }
    /// Sends a chunk that need not be shown.
    void whisper(const QByteArray& chunk) {
        at->adapter.send_from_switch(chunk);
        Network_Fixture::settle();
    }
    [[nodiscard]] int km_channel() const {
        return at->combo("comboBox_KM_Control").currentIndex() + 1;
    }
    [[nodiscard]] int usb_channel() const {
        return at->combo("comboBox_USB_Control").currentIndex() + 1;
    }
};

void Test_Network_Reports::a_report_in_one_chunk_is_applied_at_once() {
    QVERIFY(at->open_silent());
    at->unit.set_state(used_unit());
    at->adapter.send_from_switch(at->report());
    // The slot that turns the indicator green has also filled the pages, without a wait.
    QVERIFY(at->wait_connected());
    QVERIFY(at->is_filled());
    QCOMPARE(km_channel(), 3);
    QCOMPARE(usb_channel(), 2);
    QCOMPARE(at->label("label_Current_Hotkey_Trigger_Data").text(), QString("Scroll Lock"));
    QCOMPARE(at->combo("comboBox_Select_Display_Mode").currentIndex(), 1);
    QCOMPARE(at->combo("comboBox_Select_active_port").currentIndex(), 1);
    QCOMPARE(at->combo("comboBox_Enable_or_Disable_Cursor_Roll").currentIndex(), 1);
    QCOMPARE(at->line_edit("lineEdit_MouseParking_x").text(), QString("12"));
    QCOMPARE(at->line_edit("lineEdit_MouseParking_y").text(), QString("34"));
    QCOMPARE(at->resolution(1).currentIndex() + 1, 2);
    QCOMPARE(at->resolution(2).currentIndex() + 1, 10);
    QCOMPARE(at->resolution(3).currentIndex() + 1, 13);
    QCOMPARE(at->layout_positions(), QList<int>({5, 6, 7, 11}));
    QCOMPARE(at->terminal_text(), QString::fromUtf8(at->report()));
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
}

void Test_Network_Reports::a_split_report_is_an_error_and_its_rest_is_only_shown() {
    QVERIFY(at->open_silent());
    at->unit.set_state(used_unit());
    const QByteArray report = at->report();
    const qsizetype cut = report.indexOf("C1\t");
    expect_warning(at->robot, report_failure);
    at->adapter.send_from_switch(report.first(cut));
    QVERIFY(wait_until([&] { return at->robot.done(); }));
    QVERIFY(at->is_connected());
    QVERIFY(say(report.sliced(cut)));
    QCOMPARE(at->terminal_text(), QString::fromUtf8(report));
    QVERIFY(!at->is_filled());
    QCOMPARE(at->layout_positions(), QList<int>({1, 2, 3, 4}));
    // The window still works: a change is sent.
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_Reports::what_comes_in_while_a_box_stands_is_shown_and_not_the_end() {
    QVERIFY(at->open_silent());
    const QByteArray report = at->report();
    const qsizetype cut = report.indexOf("C1\t");
    const QString whole = QString::fromUtf8(report);
    at->robot.expect(
        {.class_name = "QMessageBox", .text = report_failure, .action = [&](QWidget& box) {
             at->adapter.send_from_switch(report.sliced(cut));
             const bool heard = wait_until([&] { return at->terminal_text() == whole; }, 2000);
             const QString trouble = press_button("OK")(box);
             return heard ? trouble : "not heard beside the box";
         }});
    at->adapter.send_from_switch(report.first(cut));
    QVERIFY2(wait_until([&] { return at->robot.done(); }), at->robot.why());
    QCOMPARE(at->terminal_text(), whole);
    QVERIFY(say("one more\n"));
    at->wake_switch();
    at->button("pushButton_Refresh").click();
    QVERIFY(at->wait_filled());
}

void Test_Network_Reports::a_datagram_heard_of_before_off_and_taken_behind_it_does_no_harm() {
    QVERIFY(at->open_network());
    at->button("pushButton_OFF_Connection").click();
    QVERIFY(at->run_slot("onReadyRead"));
    QVERIFY(!at->is_connected());
}

void Test_Network_Reports::what_is_pending_together_is_one_chunk() {
    QVERIFY(at->open_silent());
    at->unit.set_state(used_unit());
    const QByteArray report = at->report();
    // Both have arrived before the window reads.
    at->adapter.send_from_switch(report.first(report.indexOf("C1\t")));
    at->adapter.send_from_switch(report.sliced(report.indexOf("C1\t")));
    QVERIFY(at->wait_filled());
    QCOMPARE(at->layout_positions(), QList<int>({5, 6, 7, 11}));
    QCOMPARE(at->terminal_text(), QString::fromUtf8(report));
}

void Test_Network_Reports::a_chunk_of_the_longest_datagram_comes_whole() {
    constexpr qsizetype longest = 65'507;
    QVERIFY(at->open_silent());
    at->unit.set_state(used_unit());
    const QByteArray report = at->report();
    QByteArray padding;
    while (padding.size() < longest) {
        padding += "line at " + QByteArray::number(padding.size()) + '\n';
    }
    // The keys that are searched for last are at the very end.
    const QByteArray datagram = padding.first(longest - report.size() - 1) + '\n' + report;
    QCOMPARE(datagram.size(), longest);
    at->adapter.send_from_switch(datagram);
    QVERIFY(at->wait_filled());
    QCOMPARE(at->layout_positions(), QList<int>({5, 6, 7, 11}));
    QCOMPARE(at->terminal_text(), QString::fromUtf8(datagram));
}

void Test_Network_Reports::a_refusal_hides_no_report_behind_it() {
    QVERIFY(at->open_silent());
    at->unit.set_state(used_unit());
    // While the adapter's port is closed, a command comes back as a refusal at once.
    at->adapter.go_offline();
    QVERIFY(at->run_slot("on_pushButton_Soft_Reset_clicked"));
    QVERIFY(at->adapter.go_online());
    at->adapter.send_from_switch(at->report());
    QVERIFY(at->wait_filled());
    QCOMPARE(at->layout_positions(), QList<int>({5, 6, 7, 11}));
    QCOMPARE(at->terminal_text(), QString::fromUtf8(at->report()));
}

void Test_Network_Reports::an_adapter_that_splits_is_healed_by_a_refresh_in_one_piece() {
    QVERIFY(at->open_silent());
    expect_warning(at->robot, report_failure);
    at->adapter.send_from_switch(at->report().first(at->report().indexOf("C1\t")));
    QVERIFY(wait_until([&] { return at->robot.done(); }));
    at->wake_switch();
    at->button("pushButton_Refresh").click();
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
}

void Test_Network_Reports::a_first_chunk_without_a_marker_is_applied_but_not_shown() {
    QVERIFY(at->open_silent());
    const QByteArray chunk = "Current Hotkey Trigger: Left Alt\nCurrent USB Control 3\n"
                             "Current parking location: X=7 Y=8\n//FF01B05FF02B06FF03B07FF04B08\n";
    at->adapter.send_from_switch(chunk);
    QVERIFY(wait_until(
        [&] { return at->label("label_Current_Hotkey_Trigger_Data").text() == "Left Alt"; }));
    QCOMPARE(usb_channel(), 3);
    QCOMPARE(at->line_edit("lineEdit_MouseParking_x").text(), QString("7"));
    QCOMPARE(at->layout_positions(), QList<int>({5, 6, 7, 8}));
    QCOMPARE(at->terminal_text(), QString());
    QVERIFY(!at->is_connected());

    // The report that follows finds no flag: it turns the window green and fills nothing.
    at->unit.set_state(used_unit());
    QVERIFY(say(at->report()));
    QVERIFY(at->is_connected());
    QVERIFY(!at->is_filled());
    QCOMPARE(at->label("label_Current_Hotkey_Trigger_Data").text(), QString("Left Alt"));
    QCOMPARE(at->layout_positions(), QList<int>({5, 6, 7, 8}));
}

void Test_Network_Reports::chunks_after_the_first_marker_are_all_shown() {
    QVERIFY(at->open_network());
    QVERIFY(say("one\n"));
    QVERIFY(say("two"));
    QVERIFY(say("\xC3\xA4\n"));
    QVERIFY(at->terminal_text().endsWith(QString::fromUtf8("one\ntwo\xC3\xA4\n")));
}

void Test_Network_Reports::markup_in_a_reply_is_shown_as_its_characters() {
    QVERIFY(at->open_network());
    QVERIFY(say("<b>bold</b> &amp; <img src='x'>\n"));
}

void Test_Network_Reports::what_follows_a_nul_byte_is_lost_for_all_steps() {
    QVERIFY(at->open_network());
    const QString before = at->terminal_text();
    const QByteArray visible = "**U 2\n";
    at->adapter.send_from_switch(visible + '\0' + "**C 3\nSaving horizontal dimension as 4\n");
    QVERIFY(wait_until([&] { return at->terminal_text() != before; }));
    QCOMPARE(at->terminal_text(), before + QString::fromUtf8(visible));
    QCOMPARE(usb_channel(), 2);
    QCOMPARE(km_channel(), 1);
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
}

void Test_Network_Reports::a_lone_nul_byte_does_nothing() {
    QVERIFY(at->open_network());
    const QString before = at->terminal_text();
    whisper(QByteArray("\0**C 4\n", 7));
    QCOMPARE(at->terminal_text(), before);
    QCOMPARE(km_channel(), 1);
    QVERIFY(at->is_connected());
}

void Test_Network_Reports::a_notice_sets_its_boxes_and_sends_nothing_data() {
    QTest::addColumn<QByteArray>("notice");
    QTest::addColumn<int>("km");
    QTest::addColumn<int>("usb");
    QTest::newRow("keyboard and mouse") << QByteArray("**C 3\n") << 3 << 1;
    QTest::newRow("told in words") << QByteArray("Current KM Control: 2\n") << 2 << 1;
    QTest::newRow("USB") << QByteArray("**U 4\n") << 1 << 4;
    QTest::newRow("USB told in words") << QByteArray("Current USB Control: 2\n") << 1 << 2;
    QTest::newRow("both") << QByteArray("**M 4\n") << 4 << 4;
    QTest::newRow("two in one chunk") << QByteArray("**C 2\n**U 3\n") << 2 << 3;
}

void Test_Network_Reports::a_notice_sets_its_boxes_and_sends_nothing() {
    QFETCH(const QByteArray, notice);
    QFETCH(const int, km);
    QFETCH(const int, usb);
    QVERIFY(at->open_network());
    QVERIFY(say(notice));
    QCOMPARE(km_channel(), km);
    QCOMPARE(usb_channel(), usb);
    Network_Fixture::settle();
    QCOMPARE(at->taken, QByteArrayList());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_Reports::the_answer_to_a_resolution_is_no_notice() {
    QVERIFY(at->open_network());
    QVERIFY(say("**CE 3 4\n"));
    QCOMPARE(km_channel(), 1);
}

void Test_Network_Reports::a_notice_in_two_chunks_is_not_put_together() {
    QVERIFY(at->open_network());
    QVERIFY(say("**"));
    QVERIFY(say("C 3\n"));
    QCOMPARE(km_channel(), 1);
    QVERIFY(say("**C 3\n"));
    QCOMPARE(km_channel(), 3);
}

void Test_Network_Reports::the_last_reader_of_a_chunk_wins_in_the_models_order() {
    QFETCH_GLOBAL(const Switch_Model, model);
    QVERIFY(at->open_network());
    QVERIFY(say("**M 3\n**C 2\n"));
    // The Plus reads the notice for both last, the Pro first.
    QCOMPARE(km_channel(), model == Switch_Model::pro ? 2 : 3);
    QCOMPARE(usb_channel(), 3);
}

void Test_Network_Reports::the_pro_reads_audio_from_a_chunk() {
    QFETCH_GLOBAL(const Switch_Model, model);
    QVERIFY(at->open_network());
    if (model == Switch_Model::plus) {
        QVERIFY(say("**A F\n"));
        QVERIFY(at->window().findChildren<QCheckBox*>("checkBox_FOLLOW").isEmpty());
        return;
    }
    const auto checked = [this](const QString& name) {
        return find_child<QCheckBox>(at->window(), name).isChecked();
    };
    QVERIFY(checked("checkBox_ALL"));
    QVERIFY(say("**A F\n"));
    QVERIFY(checked("checkBox_FOLLOW"));
    QVERIFY(!checked("checkBox_ALL"));
    QVERIFY(say("**A 2 4\n"));
    QVERIFY(!checked("checkBox_FOLLOW"));
    QVERIFY(checked("checkBox_ch2"));
    QVERIFY(checked("checkBox_ch4"));
    QVERIFY(!checked("checkBox_ch1"));
    QVERIFY(say("**M 3\n"));
    QVERIFY(checked("checkBox_ch3"));
    QVERIFY(!checked("checkBox_ch2"));
}

void Test_Network_Reports::a_confirmed_layout_is_read_from_the_next_chunk_whatever_the_time() {
    constexpr int longer_than_the_serial_wait = 1300;
    QVERIFY(at->open_network());
    at->silence_switch();
    QVERIFY(say("Saving horizontal dimension as 4\n"));
    QCOMPARE(at->take_commands(1), QByteArrayList{"//BP"});
    Network_Fixture::settle(longer_than_the_serial_wait);
    QCOMPARE(at->layout_positions(), QList<int>({1, 2, 3, 4}));
    QVERIFY(say("//FF01B09FF02B10FF03B11FF04B12\n"));
    QCOMPARE(at->layout_positions(), QList<int>({9, 10, 11, 12}));
    // This affected one chunk only, and the layout only.
    QVERIFY(say("//FF01B01FF02B02FF03B03FF04B04\n"));
    QCOMPARE(at->layout_positions(), QList<int>({9, 10, 11, 12}));
    QCOMPARE(at->label("label_Current_Hotkey_Trigger_Data").text(), QString("Left Ctrl"));
}

void Test_Network_Reports::a_submitted_layout_comes_back_into_the_grid() {
    QVERIFY(at->open_network());
    expect_information(at->robot, "Display topology has been updated");
    QVERIFY(at->run_slot("on_pushButtonSubmit_clicked"));
    QCOMPARE(at->take_commands(2), QByteArrayList({"//FF01B01FF02B02FF03B03FF04B04", "//BP"}));
    QVERIFY(at->terminal_text().contains("Saving horizontal dimension as"));
    QCOMPARE(at->layout_positions(), QList<int>({1, 2, 3, 4}));
}

void Test_Network_Reports::a_user_change_sends_its_command_and_its_notice_echoes_nothing() {
    QVERIFY(at->open_network());
    at->combo("comboBox_KM_Control").setCurrentIndex(1);
    QCOMPARE(at->take_commands(1), QByteArrayList{"//c2"});
    QVERIFY(at->terminal_text().endsWith("**C 2\n"));
    QCOMPARE(km_channel(), 2);
}

void Test_Network_Reports::a_silent_switch_leaves_the_window_open_and_red() {
    constexpr int longer_than_after_on = 7500;
    QVERIFY(at->open_silent());
    Network_Fixture::settle(longer_than_after_on);
    QVERIFY(at->window().isVisible());
    QVERIFY(!at->is_connected());
    QVERIFY(at->button("pushButton_ON_Connection").isEnabled());
    QVERIFY(!at->button("pushButton_Refresh").isEnabled());
    QVERIFY(!at->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(!at->button("pushButton_Admin_Settings").isEnabled());
    QVERIFY(at->button("ConfigurationBtn").isEnabled());
    QCOMPARE(at->taken, QByteArrayList());
    QCOMPARE(Network_Fixture::socket_count(), 1);
    // A late answer still counts.
    at->adapter.send_from_switch(at->report());
    QVERIFY(at->wait_filled());
}

int main(int argc, char** argv) { return run_network_test<Test_Network_Reports>(argc, argv); }
#include "test_network_reports.moc"
