// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QTest>

/// What the switch sends without being asked, or in answer to a channel command, and what this
/// changes.
class Test_Notices : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void a_km_notice_moves_the_km_box_without_an_echo();
    void a_usb_notice_moves_the_usb_box_without_an_echo();
    void an_m_notice_moves_both_boxes_without_an_echo();
    void the_report_line_of_the_km_channel_is_a_notice_too();
    void the_usb_line_with_a_colon_is_a_notice();
    void the_usb_line_without_a_colon_is_no_notice();
    void of_both_km_keys_the_second_wins_in_either_order_of_the_text();
    void of_both_usb_keys_the_second_wins_in_either_order_of_the_text();
    void a_notice_is_found_inside_a_longer_line();
    void a_notice_in_two_chunks_counts_when_its_number_has_come();
    void a_resolution_answer_blocks_the_km_notice_until_the_buffer_is_emptied();
    void a_resolution_answer_does_not_block_the_other_notices();
    void a_notice_empties_the_buffer();
    void a_notice_during_a_report_keeps_the_buffer();
    void after_a_save_dialog_a_notice_keeps_the_buffer();
    void a_notice_beside_a_layout_confirmation_is_lost();
    void the_value_zero_behind_the_key_at_once_changes_nothing();
    void text_that_is_no_number_changes_nothing_and_shows_no_box();
    void numbers_outside_the_channels_leave_no_channel_chosen();
    void a_user_can_send_again_right_after_a_notice();
    void the_answer_to_a_channel_command_starts_no_second_command();

private:
    QComboBox& km() const { return lite->combo("comboBox_KM_Control"); }
    QComboBox& usb() const { return lite->combo("comboBox_USB_Control"); }

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

void Test_Notices::initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

void Test_Notices::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
    QCOMPARE(km().currentIndex(), 0);
    QCOMPARE(usb().currentIndex(), 0);
}

void Test_Notices::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Notices::a_km_notice_moves_the_km_box_without_an_echo() {
    QVERIFY(lite->say("**C 3\n"));
    QCOMPARE(km().currentIndex(), 2);
    QCOMPARE(usb().currentIndex(), 0);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Notices::a_usb_notice_moves_the_usb_box_without_an_echo() {
    QVERIFY(lite->say("**U 4\n"));
    QCOMPARE(usb().currentIndex(), 3);
    QCOMPARE(km().currentIndex(), 0);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Notices::an_m_notice_moves_both_boxes_without_an_echo() {
    lite->device.press_hotkey(2);
    QVERIFY(wait_until([&] { return km().currentIndex() == 1 && usb().currentIndex() == 1; }));
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Notices::the_report_line_of_the_km_channel_is_a_notice_too() {
    QVERIFY(lite->say("Current KM Control: 4\n"));
    QCOMPARE(km().currentIndex(), 3);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Notices::the_usb_line_with_a_colon_is_a_notice() {
    QVERIFY(lite->say("Current USB Control: 2\n"));
    QCOMPARE(usb().currentIndex(), 1);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Notices::the_usb_line_without_a_colon_is_no_notice() {
    QVERIFY(lite->say("Current USB Control 2\n"));
    QCOMPARE(usb().currentIndex(), 0);
}

void Test_Notices::of_both_km_keys_the_second_wins_in_either_order_of_the_text() {
    QVERIFY(lite->say("**C 2\nCurrent KM Control: 4\n"));
    QCOMPARE(km().currentIndex(), 3);
    QVERIFY(lite->say("Current KM Control: 3\n**C 2\n"));
    QCOMPARE(km().currentIndex(), 2);
}

void Test_Notices::of_both_usb_keys_the_second_wins_in_either_order_of_the_text() {
    QVERIFY(lite->say("**U 2\nCurrent USB Control: 4\n"));
    QCOMPARE(usb().currentIndex(), 3);
    QVERIFY(lite->say("Current USB Control: 3\n**U 2\n"));
    QCOMPARE(usb().currentIndex(), 2);
}

void Test_Notices::a_notice_is_found_inside_a_longer_line() {
    QVERIFY(lite->say("channel now **C 3, was 1; usb **U 2 as well\n"));
    QCOMPARE(km().currentIndex(), 2);
    QCOMPARE(usb().currentIndex(), 1);
}

void Test_Notices::a_notice_in_two_chunks_counts_when_its_number_has_come() {
    QVERIFY(lite->say("*"));
    QVERIFY(lite->say("*C"));
    QCOMPARE(km().currentIndex(), 0);
    QVERIFY(lite->say(" 3\n"));
    QCOMPARE(km().currentIndex(), 2);
}

void Test_Notices::a_resolution_answer_blocks_the_km_notice_until_the_buffer_is_emptied() {
    QVERIFY(lite->say("**C 3\n**CE 1 5\n"));
    QCOMPARE(km().currentIndex(), 0);
    QVERIFY(lite->say("**C 4\n"));
    QCOMPARE(km().currentIndex(), 0);
    // Any other notice empties the buffer.
    QVERIFY(lite->say("**U 2\n"));
    QCOMPARE(usb().currentIndex(), 1);
    QVERIFY(lite->say("**C 4\n"));
    QCOMPARE(km().currentIndex(), 3);
}

void Test_Notices::a_resolution_answer_does_not_block_the_other_notices() {
    QVERIFY(lite->say("**CE 1 5\n**U 3\n"));
    QCOMPARE(usb().currentIndex(), 2);
    QVERIFY(lite->say("**CE 1 5\n**M 4\n"));
    QCOMPARE(km().currentIndex(), 3);
    QCOMPARE(usb().currentIndex(), 3);
}

void Test_Notices::a_notice_empties_the_buffer() {
    QVERIFY(lite->say("**C 3\n"));
    QCOMPARE(km().currentIndex(), 2);
    QVERIFY(lite->say("**U 2\n"));
    QCOMPARE(usb().currentIndex(), 1);
    // If the first notice were still there, it would be the one that is found.
    QVERIFY(lite->say("**C 2\n"));
    QCOMPARE(km().currentIndex(), 1);
}

void Test_Notices::a_notice_during_a_report_keeps_the_buffer() {
    Switch_State state;
    state.km_channel = 4;
    state.hotkey_trigger = "Scroll Lock";
    lite->device.unit().set_state(state);
    lite->button("pushButton_Refresh").click();
    QVERIFY(!lite->is_filled());
    QVERIFY(wait_until([&] { return lite->terminal_text().count("FF04B04\n") == 2; }));
    QVERIFY(lite->say("**C 2\n"));
    QVERIFY(lite->say("**U 3\n"));
    QCOMPARE(usb().currentIndex(), 2);
    QVERIFY(!lite->is_filled());
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "Scroll Lock");
    QCOMPARE(km().currentIndex(), 3);
    // The end of the report has emptied the buffer and cleared the request to empty it.
    QVERIFY(lite->say("**C 2\n"));
    QCOMPARE(km().currentIndex(), 1);
}

void Test_Notices::after_a_save_dialog_a_notice_keeps_the_buffer() {
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    lite->button("pushButton_Create_Settings_File").click();
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("Buzzer: on\n"); }));
    QVERIFY(lite->say("**C 3\n"));
    QCOMPARE(km().currentIndex(), 2);
    // No report follows, so the first notice stays and is found again.
    QVERIFY(lite->say("**C 2\n"));
    QCOMPARE(km().currentIndex(), 2);
    // The limit of the buffer still applies.
    QVERIFY(lite->say(QByteArray(1001, '.') + "\n"));
    QVERIFY(lite->say("**C 4\n"));
    QCOMPARE(km().currentIndex(), 3);
    // The next report ends that.
    lite->button("pushButton_Refresh").click();
    QVERIFY(lite->wait_filled());
    QVERIFY(lite->say("**C 2\n"));
    QCOMPARE(km().currentIndex(), 1);
}

void Test_Notices::a_notice_beside_a_layout_confirmation_is_lost() {
    lite->device.send("Saving horizontal dimension as 4\n**C 3\n");
    QVERIFY(wait_until([&] { return lite->device.received_commands().contains("//BP"); }));
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("FF04B04\n"); }));
    QCOMPARE(km().currentIndex(), 0);
    QVERIFY(lite->terminal_text().contains("**C 3\n"));
    QCOMPARE(lite->commands(), QByteArrayList{"//BP"});
}

void Test_Notices::the_value_zero_behind_the_key_at_once_changes_nothing() {
    QVERIFY(lite->say("**C 3\n"));
    QVERIFY(lite->say("**C0\nCurrent KM Control: 0\n**U0\nCurrent USB Control: 0\n**M0\n"));
    QCOMPARE(km().currentIndex(), 2);
    QCOMPARE(usb().currentIndex(), 0);
    // That was no notice, so nothing has emptied the buffer.
    QVERIFY(lite->say("**C 4\n"));
    QCOMPARE(km().currentIndex(), 2);
}

void Test_Notices::text_that_is_no_number_changes_nothing_and_shows_no_box() {
    QVERIFY(lite->say("**M 3\n"));
    for (const char* text : {"**C \n", "**C x\n", "**U two\n", "**M -\n", "**C\xE2\x82\xAC\n"}) {
        QVERIFY(lite->say(text));
        QCOMPARE(km().currentIndex(), 2);
        QCOMPARE(usb().currentIndex(), 2);
    }
    QCOMPARE(lite->commands(), QByteArrayList());
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Notices::numbers_outside_the_channels_leave_no_channel_chosen() {
    for (const char* number : {"0", "5", "-1", "13", "2147483647", "-2147483648", "-2147483647"}) {
        QVERIFY(lite->say("**M 2\n"));
        QCOMPARE(km().currentIndex(), 1);
        QVERIFY(lite->say(QByteArray("**M ") + number + "\n"));
        QCOMPARE(km().currentIndex(), -1);
        QCOMPARE(usb().currentIndex(), -1);
    }
    for (const char* number : {"2147483648", "-2147483649", "99999999999999999999"}) {
        QVERIFY(lite->say("**M 2\n"));
        QVERIFY(lite->say(QByteArray("**M ") + number + "\n"));
        QCOMPARE(km().currentIndex(), 1);
    }
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Notices::a_user_can_send_again_right_after_a_notice() {
    QVERIFY(lite->say("**C 3\n"));
    usb().setCurrentIndex(3);
    QCOMPARE(lite->commands(), QByteArrayList{"//u4"});
}

void Test_Notices::the_answer_to_a_channel_command_starts_no_second_command() {
    km().setCurrentIndex(1);
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("**C 2\n"); }));
    QCOMPARE(km().currentIndex(), 1);
    QCOMPARE(lite->commands(), QByteArrayList{"//c2"});
}

QTEST_MAIN(Test_Notices)

#include "test_notices.moc"
