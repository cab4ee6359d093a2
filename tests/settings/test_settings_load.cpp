// SPDX-License-Identifier: MIT

#include "tests/support/close_fixture.h"
#include "tests/support/layout_table.h"
#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QTest>

/// Loading a valid file: what is sent to the switch and when, and what the widgets show.
class Test_Settings_Load : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void the_dialog_selects_any_file();
    void the_two_parts_go_out_in_order_2000_ms_apart();
    void the_first_part_fills_channel_names_and_resolutions_only();
    void the_second_part_fills_the_rest();
    void the_box_comes_when_all_but_a_pros_last_lines_has_been_applied_and_sent();
    void the_unit_is_what_the_file_says();
    void every_switch_answer_during_a_load_is_served();
    void a_confirmed_layout_is_read_back_and_nothing_else();
    void the_order_of_the_lines_does_not_matter();
    void a_label_that_stands_twice_counts_at_its_first_place();
    void audio_lines_that_a_model_does_not_know_and_lines_of_nobody_are_passed_over();
    void a_limit_of_3_sends_the_digit_3_twice_and_shows_the_true_places();
    void the_parking_y_field_starts_with_a_blank();
    void cancelling_reads_everything_back();
    void cancelling_without_names_asks_as_well();
    void a_user_can_send_again_after_a_load();

private:
    std::unique_ptr<Settings_Fixture> fixture;
    Settings_Lines lines;
};

void Test_Settings_Load::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    lines = Settings_Lines(model);
    fixture = std::make_unique<Settings_Fixture>(model);
    QVERIFY(fixture->open_filled());
    fixture->robot.clear_snapshots();
}

void Test_Settings_Load::cleanup() { close_fixture(fixture); }

void Test_Settings_Load::the_dialog_selects_any_file() {
    QStringList filters;
    auto accept_mode = QFileDialog::AcceptSave;
    auto file_mode = QFileDialog::Directory;
    const QWidget* parent = &fixture->window_fixture.window();
    fixture->expect_file_dialog("Select file", [&](QWidget& modal) {
        const auto& dialog = static_cast<QFileDialog&>(modal);
        filters = dialog.nameFilters();
        accept_mode = dialog.acceptMode();
        file_mode = dialog.fileMode();
        parent = dialog.parentWidget();
        return press_key(Qt::Key_Escape)(modal);
    });
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(filters, QStringList{"Text files (*.txt)"});
    QCOMPARE(accept_mode, QFileDialog::AcceptOpen);
    QCOMPARE(file_mode, QFileDialog::AnyFile);
    QVERIFY(parent == nullptr);
}

void Test_Settings_Load::the_two_parts_go_out_in_order_2000_ms_apart() {
    fixture->silence_switch();
    QElapsedTimer since_choice;
    fixture->expect_file_dialog("Select file", [&](QWidget& modal) {
        since_choice.start();
        return choose_file(fixture->write(lines.text()))(modal);
    });
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(fixture->window_fixture.commands(), lines.values(first_part_labels));

    qint64 wait = 0;
    fixture->robot.expect({.text = "Settings file applied", .action = [&](QWidget& box) {
                               wait = since_choice.elapsed();
                               return press_key(Qt::Key_Return)(box);
                           }});
    QVERIFY(wait_until([&] { return fixture->robot.done(); }, 10'000));
    QVERIFY2(wait >= second_part_wait_ms, QByteArray::number(wait));
    QCOMPARE(fixture->window_fixture.commands(), fixture->sent_in_second_part(lines));
}

void Test_Settings_Load::the_first_part_fills_channel_names_and_resolutions_only() {
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    const Window_Fixture& at = fixture->window_fixture;
    QCOMPARE(at.combo("comboBox_KM_Control").currentIndex(), 1);
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(at.resolution(channel).count(), 13);
        QCOMPARE(at.resolution(channel).itemText(9), "BANK");
        QCOMPARE(at.resolution(channel).itemText(12), "SOFA");
    }
    QCOMPARE(at.resolution(1).currentIndex(), 1);
    QCOMPARE(at.resolution(2).currentText(), "SOFA");
    QCOMPARE(at.resolution(3).currentText(), "BANK");
    QCOMPARE(at.resolution(4).currentText(), "1920x4320");

    QCOMPARE(at.combo("comboBox_USB_Control").currentIndex(), 0);
    QCOMPARE(at.combo("comboBox_Select_active_port").currentIndex(), 2);
    QCOMPARE(at.line_edit("lineEdit_MouseParking_x").text(), "50");
    QCOMPARE(at.label("label_Custom_1").text(), "100 100 DESK");
    QCOMPARE(fixture->custom_field("Name").text(), "DESK");
    QCOMPARE(Layout_Table(at).picture(), "1234/..../..../....");
}

void Test_Settings_Load::the_second_part_fills_the_rest() {
    fixture->silence_switch();
    lines["Mouse Mode: "] = "//km";
    fixture->window_fixture.combo("comboBox_number_of_setting").setCurrentIndex(1);
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->checked_audio_boxes(), fixture->is_pro() ? "ch2 ch4" : "");
    const Window_Fixture& at = fixture->window_fixture;
    QCOMPARE(at.combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(at.combo("comboBox_Select_active_port").currentIndex(), 1);
    QCOMPARE(at.combo("comboBox_Enable_or_Disable_Cursor_Roll").currentIndex(), 1);
    QCOMPARE(at.combo("comboBox_Select_Display_Mode").currentIndex(), 1);
    QCOMPARE(at.line_edit("lineEdit_MouseParking_x").text(), "30");
    QCOMPARE(at.line_edit("lineEdit_MouseParking_y").text(), " 70");
    QVERIFY(at.button("pushButton_ON_Beep").isEnabled());
    QVERIFY(!at.button("pushButton_OFF_Beep").isEnabled());
    QCOMPARE(at.label("label_Custom_1").text(), "150 300 BANK");
    QCOMPARE(at.label("label_Custom_4").text(), "500 499 SOFA");
    // The entry being edited is filled from its new label.
    QCOMPARE(fixture->custom_field("X").text(), "101");
    QCOMPARE(fixture->custom_field("Y").text(), "102");
    QCOMPARE(fixture->custom_field("Name").text(), "TREE");
    QCOMPARE(Layout_Table(at).picture(), "..../.12./.3d./....");
}

void Test_Settings_Load::the_box_comes_when_all_but_a_pros_last_lines_has_been_applied_and_sent() {
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    QByteArrayList before_ok;
    QString picture;
    QString speed;
    fixture->robot.expect({.text = "Settings file applied", .action = [&](QWidget& box) {
                               before_ok = fixture->window_fixture.commands();
                               picture = Layout_Table(fixture->window_fixture).picture();
                               speed = fixture->custom_field("X").text();
                               return press_key(Qt::Key_Return)(box);
                           }});
    QVERIFY2(wait_until([&] { return fixture->robot.done(); }), fixture->robot.why());
    QCOMPARE(before_ok, fixture->sent_before_box(lines));
    QCOMPARE(picture, "..../.12./.3d./....");
    // The mouse mode fills the fields again, on a Pro after the box.
    QCOMPARE(speed, fixture->is_pro() ? "100" : "150");
    QCOMPARE(fixture->custom_field("X").text(), "150");
    QCOMPARE(fixture->window_fixture.commands(), fixture->sent_after_box(lines));
}

void Test_Settings_Load::the_unit_is_what_the_file_says() {
    lines["Limit Ports: "] = "//D4";
    lines["Grid settings: "] = "//FF01B06FF02B07FF03B10FF04B11";
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    const Switch_State& state = fixture->window_fixture.device.unit().state();
    QCOMPARE(state.km_channel, 2);
    QCOMPARE(state.usb_channel, 3);
    QCOMPARE(state.port_limit, 4);
    QCOMPARE(state.cursor_rolling, true);
    QCOMPARE(state.parking_x, 30);
    QCOMPARE(state.parking_y, 70);
    QCOMPARE(state.resolutions, (std::array<int, 4>{2, 13, 10, 9}));
    QCOMPARE(state.custom_entries[0].x_speed, 150);
    QCOMPARE(state.custom_entries[3].y_speed, 499);
    QCOMPARE(state.custom_entries[3].name, QByteArray("SOFA"));
    QCOMPARE(state.layout_positions, (std::array<int, 4>{6, 7, 10, 11}));
    QCOMPARE(state.buzzer, false);
    QCOMPARE(state.relative_mouse, true);
    if (fixture->is_pro()) {
        QVERIFY(state.audio.mode == Audio_Routing::Mode::channels);
        QCOMPARE(state.audio.channels, (std::array{false, true, false, true}));
    }
}

// Answers arrive in pieces all the time: the notices among them set the boxes to their current
// values.
void Test_Settings_Load::every_switch_answer_during_a_load_is_served() {
    lines["Limit Ports: "] = "//D4";
    lines["Grid settings: "] = "//FF01B06FF02B07FF03B10FF04B11";
    Fault_Plan plan;
    plan.chunk_size = 3;
    plan.chunk_gap = std::chrono::milliseconds(10);
    fixture->window_fixture.device.set_faults(plan);
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QVERIFY(wait_until([&] { return fixture->window_fixture.device.all_sent(); }, 10'000));
    QVERIFY(wait_until(
        [&] { return Layout_Table(fixture->window_fixture).picture() == "..../.12./.34./...."; }));
    QByteArrayList sent = fixture->window_fixture.commands();
    QCOMPARE(sent.removeAll("//BP"), 1);
    QCOMPARE(sent, lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
    QCOMPARE(fixture->window_fixture.combo("comboBox_KM_Control").currentIndex(), 1);
    QCOMPARE(fixture->window_fixture.combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(fixture->window_fixture.resolution(2).currentText(), "SOFA");
}

void Test_Settings_Load::a_confirmed_layout_is_read_back_and_nothing_else() {
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), lines.values(first_part_labels));
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QVERIFY(wait_until(
        [&] { return fixture->window_fixture.device.received_commands().contains("//BP"); }));
    // A Pro's last lines wait for its box; the switch does not wait.
    QByteArrayList sent = fixture->window_fixture.commands();
    QVERIFY(sent.indexOf("//BP") >= fixture->sent_before_box(lines).size());
    QCOMPARE(sent.removeAll("//BP"), 1);
    QCOMPARE(sent, fixture->sent_in_second_part(lines));
    // The unit has used the second digit 3 for channel 3, and channel 4 is unchanged.
    QVERIFY(wait_until(
        [&] { return Layout_Table(fixture->window_fixture).picture() == "...d/.12./..3./...."; }));
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList());
}

void Test_Settings_Load::the_order_of_the_lines_does_not_matter() {
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.reversed_text())), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), lines.values(first_part_labels));
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), fixture->sent_in_second_part(lines));
    QCOMPARE(Layout_Table(fixture->window_fixture).picture(), "..../.12./.3d./....");
    QCOMPARE(fixture->window_fixture.label("label_Custom_2").text(), "101 102 TREE");
}

void Test_Settings_Load::a_label_that_stands_twice_counts_at_its_first_place() {
    fixture->silence_switch();
    const QByteArray second_places = "KM Control: //c4\nUSB Control: //u1\nGrid settings: //FF\n"
                                     "Coordinates channel 1: 3 3\nMouse Mode: //ks\n";
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text() + second_places)),
             fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), lines.values(first_part_labels));
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), fixture->sent_in_second_part(lines));
    QCOMPARE(Layout_Table(fixture->window_fixture).picture(), "..../.12./.3d./....");
    QCOMPARE(fixture->window_fixture.combo("comboBox_KM_Control").currentIndex(), 1);
}

void Test_Settings_Load::
    audio_lines_that_a_model_does_not_know_and_lines_of_nobody_are_passed_over() {
    fixture->silence_switch();
    const QByteArray pro_file =
        lines.text() + "Audio settings: //a 1 3\nAudio chacked state: 13\nNonsense: //F\n";
    QVERIFY2(fixture->load_first_part(fixture->write(pro_file)), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
}

void Test_Settings_Load::a_limit_of_3_sends_the_digit_3_twice_and_shows_the_true_places() {
    fixture->silence_switch();
    QCOMPARE(lines["Grid settings: "], QByteArray("//FF01B06FF02B07FF03B10FF03B11"));
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QVERIFY(fixture->window_fixture.commands().contains("//FF01B06FF02B07FF03B10FF03B11"));
    QCOMPARE(Layout_Table(fixture->window_fixture).picture(), "..../.12./.3d./....");
}

void Test_Settings_Load::the_parking_y_field_starts_with_a_blank() {
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    QCOMPARE(fixture->window_fixture.line_edit("lineEdit_MouseParking_y").text(), " 70");
    fixture->window_fixture.button("pushButton_Apply_mouse_parking").click();
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList{"//MP 30  70"});
}

void Test_Settings_Load::cancelling_reads_everything_back() {
    fixture->expect_file_dialog("Select file", press_button("Cancel"));
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(fixture->window_fixture.resolution(1).count(), 9);
    QCOMPARE(fixture->window_fixture.commands(), fixture->start_commands());
    QVERIFY(fixture->window_fixture.wait_filled());
    QCOMPARE(fixture->window_fixture.resolution(3).itemText(10), "WALL");
    QCOMPARE(fixture->window_fixture.resolution(1).count(), 13);
    // No second part follows.
    QVERIFY(
        !wait_until([&] { return fixture->robot.snapshots().size() > 1; }, second_part_wait_ms));
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList());
}

void Test_Settings_Load::cancelling_without_names_asks_as_well() {
    QVERIFY(fixture->window_fixture.run_slot("refresh_UI"));
    fixture->expect_file_dialog("Select file", press_key(Qt::Key_Escape));
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(fixture->window_fixture.commands(),
             fixture->start_commands() + fixture->start_commands());
    QVERIFY(fixture->window_fixture.wait_filled());
}

void Test_Settings_Load::a_user_can_send_again_after_a_load() {
    fixture->silence_switch();
    QVERIFY2(fixture->load_first_part(fixture->write(lines.text())), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    // Also between the two parts.
    fixture->window_fixture.combo("comboBox_USB_Control").setCurrentIndex(3);
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList{"//u4"});
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    fixture->window_fixture.combo("comboBox_KM_Control").setCurrentIndex(0);
    fixture->window_fixture.resolution(1).setCurrentIndex(12);
    QCOMPARE(fixture->window_fixture.commands(), (QByteArrayList{"//c1", "//CE 1 13"}));
}

QTEST_MAIN(Test_Settings_Load)

#include "test_settings_load.moc"
