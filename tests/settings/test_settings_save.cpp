// SPDX-License-Identifier: MIT

#include "tests/support/close_fixture.h"
#include "tests/support/model_fixture.h"
#include "tests/support/sample_units.h"
#include "tests/support/settings_fixture.h"

#include <QFile>
#include <QTest>

/// The file that Create Settings File writes.
class Test_Settings_Save : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_whole_file_byte_for_byte();
    void a_silent_switch_gives_a_file_of_start_values_and_empty_lines();
    void gray_channels_come_out_as_digit_3_and_keep_their_coordinates_data();
    void gray_channels_come_out_as_digit_3_and_keep_their_coordinates();
    void the_mouse_mode_follows_the_km_channel_on_a_lite_and_the_mode_elsewhere_data();
    void the_mouse_mode_follows_the_km_channel_on_a_lite_and_the_mode_elsewhere();
    void a_name_with_blanks_keeps_them_in_the_data_line_only();
    void custom_figures_come_from_the_report_and_the_name_from_the_list();
    void a_custom_line_is_cut_at_49_bytes();
    void a_custom_line_is_cut_between_characters();
    void texts_beyond_ascii_are_written_as_utf8();
    void the_file_holds_what_the_widgets_show();
    void with_nothing_chosen_the_commands_say_so();

private:
    /// The value of a line in a file saved now.
    QByteArrayList saved_lines();

    std::unique_ptr<Settings_Fixture> fixture;
};

namespace {

const QByteArray empty_file = "KM Control: //c1\n"
                              "USB Control: //u1\n"
                              "Limit Ports: //D2\n"
                              "Cursor Rolling: //o0\n"
                              "Mouse Parking: //MP  \n"
                              "Resolution channel 1: //CE 1 1\n"
                              "Resolution channel 2: //CE 2 1\n"
                              "Resolution channel 3: //CE 3 1\n"
                              "Resolution channel 4: //CE 4 1\n"
                              "Custom mouse movement setting 1: \n"
                              "Custom mouse movement setting 2: \n"
                              "Custom mouse movement setting 3: \n"
                              "Custom mouse movement setting 4: \n"
                              "Data from mouse movement label 1: \n"
                              "Data from mouse movement label 2: \n"
                              "Data from mouse movement label 3: \n"
                              "Data from mouse movement label 4: \n"
                              "Grid settings: //FF01B01FF02B02FF03B03FF04B04\n"
                              "Coordinates channel 1: 0 0\n"
                              "Coordinates channel 2: 0 1\n"
                              "Coordinates channel 3: 0 2\n"
                              "Coordinates channel 4: 0 3\n"
                              "Buzzer: //B1\n"
                              "Mouse Mode: //ks\n";

const QByteArray empty_audio = "Audio settings: //a x\n"
                               "Audio chacked state: //a x\n";

} // namespace

void Test_Settings_Save::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    fixture = std::make_unique<Settings_Fixture>(model);
}

void Test_Settings_Save::cleanup() { close_fixture(fixture); }

QByteArrayList Test_Settings_Save::saved_lines() {
    const QString path = fixture->path("lines.txt");
    QFile::remove(path);
    return fixture->save(path) ? Settings_Fixture::read(path).split('\n') : QByteArrayList();
}

void Test_Settings_Save::a_whole_file_byte_for_byte() {
    fixture->window_fixture.device.unit().set_state(documented_unit());
    QVERIFY(fixture->open_filled());
    QVERIFY2(fixture->save(fixture->path()), fixture->robot.why());
    QCOMPARE(Settings_Fixture::read(fixture->path()),
             QByteArray(documented_lines) + (fixture->is_pro() ? documented_audio_lines : ""));
}

void Test_Settings_Save::a_silent_switch_gives_a_file_of_start_values_and_empty_lines() {
    fixture->silence_switch();
    fixture->window_fixture.open();
    fixture->expect_file_dialog("Save Settings File", choose_file(fixture->path()));
    fixture->expect_saved_box();
    // The button can't be reached as long as no switch has answered.
    QVERIFY(!fixture->window_fixture.button("pushButton_Create_Settings_File").isEnabled());
    QVERIFY(fixture->window_fixture.run_slot("on_pushButton_Create_Settings_File_clicked"));
    QCOMPARE(Settings_Fixture::read(fixture->path()),
             empty_file + (fixture->is_pro() ? empty_audio : ""));
}

void Test_Settings_Save::gray_channels_come_out_as_digit_3_and_keep_their_coordinates_data() {
    QTest::addColumn<int>("port_limit");
    QTest::addColumn<QByteArray>("grid");
    QTest::addRow("4 ports") << 4 << QByteArray("//FF01B14FF02B10FF03B06FF04B02");
    QTest::addRow("3 ports") << 3 << QByteArray("//FF01B14FF02B10FF03B06FF03B02");
    QTest::addRow("2 ports") << 2 << QByteArray("//FF01B14FF02B10FF03B06FF03B02");
}

void Test_Settings_Save::gray_channels_come_out_as_digit_3_and_keep_their_coordinates() {
    QFETCH(const int, port_limit);
    QFETCH(const QByteArray, grid);
    Switch_State state;
    state.port_limit = port_limit;
    state.layout_positions = {14, 10, 6, 2};
    fixture->window_fixture.device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    const QByteArrayList lines = saved_lines();
    QCOMPARE(lines.value(2), "Limit Ports: //D" + QByteArray::number(port_limit));
    QCOMPARE(lines.mid(17, 5),
             (QByteArrayList{"Grid settings: " + grid, "Coordinates channel 1: 3 1",
                             "Coordinates channel 2: 2 1", "Coordinates channel 3: 1 1",
                             "Coordinates channel 4: 0 1"}));
}

void Test_Settings_Save::
    the_mouse_mode_follows_the_km_channel_on_a_lite_and_the_mode_elsewhere_data() {
    QTest::addColumn<int>("km_channel");
    QTest::addColumn<bool>("relative");
    QTest::addColumn<QByteArray>("lite_line");
    QTest::addColumn<QByteArray>("line");
    const QByteArray absolute = "Mouse Mode: //ks";
    const QByteArray relative = "Mouse Mode: //km";
    QTest::addRow("channel 1, relative") << 1 << true << absolute << relative;
    QTest::addRow("channel 3, absolute") << 3 << false << relative << absolute;
}

void Test_Settings_Save::the_mouse_mode_follows_the_km_channel_on_a_lite_and_the_mode_elsewhere() {
    QFETCH(const int, km_channel);
    QFETCH(const bool, relative);
    QFETCH(const QByteArray, lite_line);
    QFETCH(const QByteArray, line);
    Switch_State state;
    state.km_channel = km_channel;
    state.relative_mouse = relative;
    fixture->window_fixture.device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    QCOMPARE(fixture->window_fixture.combo("comboBox_Select_Display_Mode").currentIndex(),
             relative ? 1 : 0);
    QCOMPARE(saved_lines().value(23), fixture->is_lite() ? lite_line : line);
}

void Test_Settings_Save::a_name_with_blanks_keeps_them_in_the_data_line_only() {
    Switch_State state;
    state.custom_entries[1] = {101, 102, "MY  BIG DESK"};
    state.custom_entries[2] = {103, 104, ""};
    fixture->window_fixture.device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    const QByteArrayList lines = saved_lines();
    QCOMPARE(lines.value(10), "Custom mouse movement setting 2: //MM C2 101 102 MYBIGDESK");
    QCOMPARE(lines.value(14), "Data from mouse movement label 2: 101 102 MY  BIG DESK");
    // Nothing removes a single blank at the end.
    QCOMPARE(lines.value(11), "Custom mouse movement setting 3: //MM C3 103 104 ");
    QCOMPARE(lines.value(15), "Data from mouse movement label 3: 103 104 ");
}

void Test_Settings_Save::custom_figures_come_from_the_report_and_the_name_from_the_list() {
    QVERIFY(fixture->open_filled());
    fixture->custom_field("Name").setText("two  words ");
    fixture->custom_field("X").setText("7");
    fixture->custom_field("Y").setText("8");
    fixture->custom_submit().click();
    // The tool has not sent its questions again yet.
    const QByteArrayList lines = saved_lines();
    QCOMPARE(lines.value(9), "Custom mouse movement setting 1: //MM C1 100 100 two words ");
    QCOMPARE(lines.value(13), "Data from mouse movement label 1: 100 100 DESK");
}

void Test_Settings_Save::a_custom_line_is_cut_at_49_bytes() {
    Switch_State state;
    state.custom_entries[3] = {1, 2, QByteArray(60, 'N')};
    fixture->window_fixture.device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    const QByteArray line = saved_lines().value(12);
    QCOMPARE(line, "Custom mouse movement setting 4: //MM C4 001 002 " + QByteArray(33, 'N'));
}

void Test_Settings_Save::a_custom_line_is_cut_between_characters() {
    Switch_State state;
    state.custom_entries[3] = {1, 2, QByteArray(31, 'N') + "東京"};
    fixture->window_fixture.device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    QCOMPARE(saved_lines().value(12),
             "Custom mouse movement setting 4: //MM C4 001 002 " + QByteArray(31, 'N'));
}

void Test_Settings_Save::texts_beyond_ascii_are_written_as_utf8() {
    Switch_State state;
    state.custom_entries[0] = {1, 2, "Büro東京"};
    fixture->window_fixture.device.unit().set_state(state);
    QVERIFY(fixture->open_filled());
    const QByteArrayList lines = saved_lines();
    QCOMPARE(lines.value(9), "Custom mouse movement setting 1: //MM C1 001 002 Büro東京");
    QCOMPARE(lines.value(13), "Data from mouse movement label 1: 001 002 Büro東京");
}

void Test_Settings_Save::the_file_holds_what_the_widgets_show() {
    QVERIFY(fixture->open_filled());
    fixture->window_fixture.combo("comboBox_KM_Control").setCurrentIndex(3);
    fixture->window_fixture.combo("comboBox_USB_Control").setCurrentIndex(2);
    fixture->window_fixture.combo("comboBox_Enable_or_Disable_Cursor_Roll").setCurrentIndex(1);
    fixture->window_fixture.button("pushButton_OFF_Beep").click();
    fixture->window_fixture.resolution(2).setCurrentIndex(12);
    // Typed, but not applied.
    fixture->window_fixture.line_edit("lineEdit_MouseParking_x").setText("7");
    fixture->window_fixture.line_edit("lineEdit_MouseParking_y").setText("99");
    const QByteArrayList lines = saved_lines();
    QCOMPARE(lines.value(0), "KM Control: //c4");
    QCOMPARE(lines.value(1), "USB Control: //u3");
    QCOMPARE(lines.value(3), "Cursor Rolling: //o1");
    QCOMPARE(lines.value(4), "Mouse Parking: //MP 7 99");
    QCOMPARE(lines.value(6), "Resolution channel 2: //CE 2 13");
    QCOMPARE(lines.value(22), "Buzzer: //B0");
}

void Test_Settings_Save::with_nothing_chosen_the_commands_say_so() {
    QVERIFY(fixture->open_filled());
    for (const char* name :
         {"comboBox_KM_Control", "comboBox_USB_Control", "comboBox_Select_active_port",
          "comboBox_Enable_or_Disable_Cursor_Roll",
          "comboBox_mouse_movement_resolution_setting_1"}) {
        fixture->window_fixture.combo(name).setCurrentIndex(-1);
    }
    const QByteArrayList lines = saved_lines();
    QCOMPARE(lines.value(0), "KM Control: //c0");
    QCOMPARE(lines.value(1), "USB Control: //u0");
    QCOMPARE(lines.value(2), "Limit Ports: //D1");
    QCOMPARE(lines.value(3), "Cursor Rolling: //o1");
    QCOMPARE(lines.value(5), "Resolution channel 1: //CE 1 0");
}

QTEST_MAIN(Test_Settings_Save)

#include "test_settings_save.moc"
