#include "tests/settings/settings_desk.h"
#include "tests/support/wait_until.h"
#include "tests/windows/test_layout_table.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QTest>

/// Loading a good file: what goes to the switch and when, and what the widgets show.
class Test_Settings_Load : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_dialog_selects_any_file();
    void the_two_parts_go_out_in_order_2000_ms_apart();
    void the_first_part_fills_channel_names_and_resolutions_only();
    void the_second_part_fills_the_rest();
    void the_box_comes_when_all_has_been_applied_and_sent();
    void the_unit_is_what_the_file_says();
    void every_switch_answer_during_a_load_is_served();
    void a_confirmed_layout_is_read_back_and_nothing_else();
    void the_order_of_the_lines_does_not_matter();
    void a_label_that_stands_twice_counts_at_its_first_place();
    void the_lines_of_a_pro_file_that_a_lite_does_not_know_are_passed_over();
    void a_limit_of_3_sends_the_digit_3_twice_and_shows_the_true_places();
    void the_parking_y_field_starts_with_a_blank();
    void cancelling_reads_everything_back();
    void cancelling_without_names_asks_as_well();
    void a_user_can_send_again_after_a_load();

private:
    std::unique_ptr<Settings_Desk> desk;
    Settings_Lines lines;
};

namespace {

constexpr int second_part_wait = 2000;

} // namespace

void Test_Settings_Load::init() {
    lines = Settings_Lines();
    desk = std::make_unique<Settings_Desk>();
    QVERIFY(desk->lite.open_filled());
}

void Test_Settings_Load::cleanup() {
    const bool robot_done = desk->robot.done();
    const QByteArray why = desk->robot.why();
    desk.reset();
    QVERIFY2(robot_done, why);
    QCOMPARE(windows_left(), QStringList());
}

void Test_Settings_Load::the_dialog_selects_any_file() {
    QStringList filters;
    auto accept_mode = QFileDialog::AcceptSave;
    auto file_mode = QFileDialog::Directory;
    const QWidget* parent = &desk->lite.window();
    desk->expect_file_dialog("Select file", [&](QWidget& modal) {
        const auto& dialog = static_cast<QFileDialog&>(modal);
        filters = dialog.nameFilters();
        accept_mode = dialog.acceptMode();
        file_mode = dialog.fileMode();
        parent = dialog.parentWidget();
        return press_key(Qt::Key_Escape)(modal);
    });
    desk->lite.button("pushButton_Load_Settings_File").click();
    QCOMPARE(filters, QStringList{"Text files (*.txt)"});
    QCOMPARE(accept_mode, QFileDialog::AcceptOpen);
    QCOMPARE(file_mode, QFileDialog::AnyFile);
    QVERIFY(parent == nullptr);
}

void Test_Settings_Load::the_two_parts_go_out_in_order_2000_ms_apart() {
    desk->silence_switch();
    QElapsedTimer since_choice;
    desk->expect_file_dialog("Select file", [&](QWidget& modal) {
        since_choice.start();
        return choose_file(desk->write(lines.text()))(modal);
    });
    desk->lite.button("pushButton_Load_Settings_File").click();
    QCOMPARE(desk->lite.commands(), lines.values(first_part_labels));

    qint64 wait = 0;
    desk->robot.expect({.text = "Settings file applied", .action = [&](QWidget& box) {
                            wait = since_choice.elapsed();
                            return press_key(Qt::Key_Return)(box);
                        }});
    QVERIFY(wait_until([&] { return desk->robot.done(); }, 10'000));
    QVERIFY2(wait >= second_part_wait, QByteArray::number(wait));
    QCOMPARE(desk->lite.commands(), lines.values(second_part_labels));
}

void Test_Settings_Load::the_first_part_fills_channel_names_and_resolutions_only() {
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    const Lite_Fixture& lite = desk->lite;
    QCOMPARE(lite.combo("comboBox_KM_Control").currentIndex(), 1);
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(lite.resolution(channel).count(), 13);
        QCOMPARE(lite.resolution(channel).itemText(9), "BANK");
        QCOMPARE(lite.resolution(channel).itemText(12), "SOFA");
    }
    QCOMPARE(lite.resolution(1).currentIndex(), 1);
    QCOMPARE(lite.resolution(2).currentText(), "SOFA");
    QCOMPARE(lite.resolution(3).currentText(), "BANK");
    QCOMPARE(lite.resolution(4).currentText(), "1920x4320");

    QCOMPARE(lite.combo("comboBox_USB_Control").currentIndex(), 0);
    QCOMPARE(lite.combo("comboBox_Select_active_port").currentIndex(), 2);
    QCOMPARE(lite.line_edit("lineEdit_MouseParking_x").text(), "50");
    QCOMPARE(lite.label("label_Custom_1").text(), "100 100 DESK");
    QCOMPARE(lite.line_edit("lineEdit_Mouse_Movement_Name").text(), "DESK");
    QCOMPARE(Layout_Table(lite).picture(), "1234/..../..../....");
}

void Test_Settings_Load::the_second_part_fills_the_rest() {
    desk->silence_switch();
    lines["Mouse Mode: "] = "//km";
    desk->lite.combo("comboBox_number_of_setting").setCurrentIndex(1);
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    const Lite_Fixture& lite = desk->lite;
    QCOMPARE(lite.combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(lite.combo("comboBox_Select_active_port").currentIndex(), 1);
    QCOMPARE(lite.combo("comboBox_Enable_or_Disable_Cursor_Roll").currentIndex(), 1);
    QCOMPARE(lite.combo("comboBox_Select_Display_Mode").currentIndex(), 1);
    QCOMPARE(lite.line_edit("lineEdit_MouseParking_x").text(), "30");
    QCOMPARE(lite.line_edit("lineEdit_MouseParking_y").text(), " 70");
    QVERIFY(lite.button("pushButton_ON_Beep").isEnabled());
    QVERIFY(!lite.button("pushButton_OFF_Beep").isEnabled());
    QCOMPARE(lite.label("label_Custom_1").text(), "150 300 BANK");
    QCOMPARE(lite.label("label_Custom_4").text(), "500 499 SOFA");
    // The entry being edited is filled from its new label.
    QCOMPARE(lite.line_edit("lineEdit_Mouse_Movement_X").text(), "101");
    QCOMPARE(lite.line_edit("lineEdit_Mouse_Movement_Y").text(), "102");
    QCOMPARE(lite.line_edit("lineEdit_Mouse_Movement_Name").text(), "TREE");
    QCOMPARE(Layout_Table(lite).picture(), "..../.12./.3d./....");
}

void Test_Settings_Load::the_box_comes_when_all_has_been_applied_and_sent() {
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    (void)desk->lite.commands();
    QByteArrayList before_ok;
    QString picture;
    desk->robot.expect({.text = "Settings file applied", .action = [&](QWidget& box) {
                            before_ok = desk->lite.commands();
                            picture = Layout_Table(desk->lite).picture();
                            return press_key(Qt::Key_Return)(box);
                        }});
    QVERIFY(desk->lite.run_slot("load_second_part_of_settings"));
    QCOMPARE(before_ok, lines.values(second_part_labels));
    QCOMPARE(picture, "..../.12./.3d./....");
    QCOMPARE(desk->lite.commands(), QByteArrayList());
}

void Test_Settings_Load::the_unit_is_what_the_file_says() {
    lines["Limit Ports: "] = "//D4";
    lines["Grid settings: "] = "//FF01B06FF02B07FF03B10FF04B11";
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    (void)desk->lite.commands();
    const Switch_State& state = desk->lite.device.unit().state();
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
}

// Answers arrive in pieces all the while: the notices among them move the boxes to where they are.
void Test_Settings_Load::every_switch_answer_during_a_load_is_served() {
    lines["Limit Ports: "] = "//D4";
    lines["Grid settings: "] = "//FF01B06FF02B07FF03B10FF04B11";
    Fault_Plan plan;
    plan.chunk_size = 3;
    plan.chunk_gap = std::chrono::milliseconds(10);
    desk->lite.device.set_faults(plan);
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->wait_for_second_part(), desk->robot.why());
    QVERIFY(wait_until([&] { return desk->lite.device.all_sent(); }, 10'000));
    QVERIFY(
        wait_until([&] { return Layout_Table(desk->lite).picture() == "..../.12./.34./...."; }));
    QCOMPARE(desk->lite.commands(), lines.values(first_part_labels) +
                                        lines.values(second_part_labels) + QByteArrayList{"//BP"});
    QCOMPARE(desk->lite.combo("comboBox_KM_Control").currentIndex(), 1);
    QCOMPARE(desk->lite.combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(desk->lite.resolution(2).currentText(), "SOFA");
}

void Test_Settings_Load::a_confirmed_layout_is_read_back_and_nothing_else() {
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QCOMPARE(desk->lite.commands(), lines.values(first_part_labels));
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    QVERIFY(wait_until([&] { return desk->lite.device.received_commands().contains("//BP"); }));
    QCOMPARE(desk->lite.commands(), lines.values(second_part_labels) + QByteArrayList{"//BP"});
    // The unit has taken the second digit 3 for channel 3, and channel 4 has stayed.
    QVERIFY(
        wait_until([&] { return Layout_Table(desk->lite).picture() == "...d/.12./..3./...."; }));
    QCOMPARE(desk->lite.commands(), QByteArrayList());
}

void Test_Settings_Load::the_order_of_the_lines_does_not_matter() {
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.reversed_text())), desk->robot.why());
    QCOMPARE(desk->lite.commands(), lines.values(first_part_labels));
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    QCOMPARE(desk->lite.commands(), lines.values(second_part_labels));
    QCOMPARE(Layout_Table(desk->lite).picture(), "..../.12./.3d./....");
    QCOMPARE(desk->lite.label("label_Custom_2").text(), "101 102 TREE");
}

void Test_Settings_Load::a_label_that_stands_twice_counts_at_its_first_place() {
    desk->silence_switch();
    const QByteArray second_places = "KM Control: //c4\nUSB Control: //u1\nGrid settings: //FF\n"
                                     "Coordinates channel 1: 3 3\nMouse Mode: //ks\n";
    QVERIFY2(desk->load_first_part(desk->write(lines.text() + second_places)), desk->robot.why());
    QCOMPARE(desk->lite.commands(), lines.values(first_part_labels));
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    QCOMPARE(desk->lite.commands(), lines.values(second_part_labels));
    QCOMPARE(Layout_Table(desk->lite).picture(), "..../.12./.3d./....");
    QCOMPARE(desk->lite.combo("comboBox_KM_Control").currentIndex(), 1);
}

void Test_Settings_Load::the_lines_of_a_pro_file_that_a_lite_does_not_know_are_passed_over() {
    desk->silence_switch();
    const QByteArray pro_file =
        lines.text() + "Audio settings: //a 1 3\nAudio chacked state: 13\nNonsense: //F\n";
    QVERIFY2(desk->load_first_part(desk->write(pro_file)), desk->robot.why());
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    QCOMPARE(desk->lite.commands(),
             lines.values(first_part_labels) + lines.values(second_part_labels));
}

void Test_Settings_Load::a_limit_of_3_sends_the_digit_3_twice_and_shows_the_true_places() {
    desk->silence_switch();
    QCOMPARE(lines["Grid settings: "], QByteArray("//FF01B06FF02B07FF03B10FF03B11"));
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    QVERIFY(desk->lite.commands().contains("//FF01B06FF02B07FF03B10FF03B11"));
    QCOMPARE(Layout_Table(desk->lite).picture(), "..../.12./.3d./....");
}

void Test_Settings_Load::the_parking_y_field_starts_with_a_blank() {
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    (void)desk->lite.commands();
    QCOMPARE(desk->lite.line_edit("lineEdit_MouseParking_y").text(), " 70");
    desk->lite.button("pushButton_Apply_mouse_parking").click();
    QCOMPARE(desk->lite.commands(), QByteArrayList{"//MP 30  70"});
}

void Test_Settings_Load::cancelling_reads_everything_back() {
    desk->expect_file_dialog("Select file", press_button("Cancel"));
    desk->lite.button("pushButton_Load_Settings_File").click();
    QCOMPARE(desk->lite.resolution(1).count(), 9);
    QCOMPARE(desk->lite.commands(), (QByteArrayList{"//rl", "//??", "//BP"}));
    QVERIFY(desk->lite.wait_filled());
    QCOMPARE(desk->lite.resolution(3).itemText(10), "WALL");
    QCOMPARE(desk->lite.resolution(1).count(), 13);
    // No second part follows.
    QVERIFY(!wait_until([&] { return desk->robot.sights().size() > 1; }, second_part_wait));
    QCOMPARE(desk->lite.commands(), QByteArrayList());
}

void Test_Settings_Load::cancelling_without_names_asks_as_well() {
    QVERIFY(desk->lite.run_slot("refresh_UI"));
    desk->expect_file_dialog("Select file", press_key(Qt::Key_Escape));
    desk->lite.button("pushButton_Load_Settings_File").click();
    QCOMPARE(desk->lite.commands(),
             (QByteArrayList{"//rl", "//??", "//BP", "//rl", "//??", "//BP"}));
    QVERIFY(desk->lite.wait_filled());
}

void Test_Settings_Load::a_user_can_send_again_after_a_load() {
    desk->silence_switch();
    QVERIFY2(desk->load_first_part(desk->write(lines.text())), desk->robot.why());
    (void)desk->lite.commands();
    // Also between the two parts.
    desk->lite.combo("comboBox_USB_Control").setCurrentIndex(3);
    QCOMPARE(desk->lite.commands(), QByteArrayList{"//u4"});
    QVERIFY2(desk->load_second_part_now(), desk->robot.why());
    (void)desk->lite.commands();
    desk->lite.combo("comboBox_KM_Control").setCurrentIndex(0);
    desk->lite.resolution(1).setCurrentIndex(12);
    QCOMPARE(desk->lite.commands(), (QByteArrayList{"//c1", "//CE 1 13"}));
}

QTEST_MAIN(Test_Settings_Load)

#include "test_settings_load.moc"
