// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QTemporaryDir>
#include <QTest>

/// The controls of the Lite's first page: what each sends, and what prevents it from sending.
class Test_Configuration : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void the_boxes_offer_their_items();
    void before_a_report_the_page_is_empty();
    void the_third_km_channel_sends_its_five_bytes();
    void every_km_channel_sends_its_command();
    void every_usb_channel_sends_its_command();
    void every_port_limit_sends_its_command();
    void cursor_rolling_sends_its_commands();
    void a_custom_resolution_sends_its_number_in_the_list();
    void on_channel_one_any_mouse_mode_sends_absolute();
    void on_any_other_channel_any_mouse_mode_sends_relative();
    void choosing_the_same_item_again_sends_nothing();
    void the_beep_buttons_act_as_one_toggle_before_any_answer();
    void mouse_parking_sends_both_fields_with_one_blank();
    void empty_parking_fields_send_two_blanks();
    void parking_fields_are_sent_as_they_stand();
    void a_parking_value_outside_0_to_100_raises_the_box_on_leaving_its_field();
    void a_parking_value_in_range_or_no_number_raises_no_box();
    void a_parking_value_out_of_range_is_kept_and_sent_all_the_same();
    void the_parking_fields_are_never_disabled();
    void off_leaves_the_values_and_deadens_the_page();
    void a_box_changed_while_ui_changes_are_disabled_sends_nothing();
    void nothing_is_sent_while_writing_is_disabled();

private:
    /// What the switch receives when each of the items is chosen in turn.
    QByteArrayList commands_of_items(const QString& box, const QList<int>& items);
    void be_silent();
    void type_and_leave(const QString& field, const QString& text);

    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

namespace {

QStringList items_of(const QComboBox& box) {
    QStringList items;
    for (int i = 0; i < box.count(); ++i) {
        items.append(box.itemText(i));
    }
    return items;
}

Modal_Expectation range_warning() {
    return {.class_name = "QMessageBox",
            .title = "Information",
            .text = "Mouse Parking Range is between 0-100",
            .icon = QMessageBox::Warning,
            .buttons = QStringList{"OK"},
            .action = press_button("OK")};
}

} // namespace

void Test_Configuration::initTestCase() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void Test_Configuration::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
    be_silent();
}

void Test_Configuration::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

/// So that no notice changes a box between two choices.
void Test_Configuration::be_silent() {
    Fault_Plan plan;
    plan.silence = true;
    lite->device.set_faults(plan);
}

QByteArrayList Test_Configuration::commands_of_items(const QString& box, const QList<int>& items) {
    for (const int item : items) {
        lite->combo(box).setCurrentIndex(item);
    }
    return lite->commands();
}

void Test_Configuration::type_and_leave(const QString& field, const QString& text) {
    QLineEdit& edit = lite->line_edit(field);
    // A field whose window is not active gets no focus, so it cannot lose it.
    lite->window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&lite->window()));
    edit.setFocus();
    QVERIFY(edit.hasFocus());
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Tab);
}

void Test_Configuration::the_boxes_offer_their_items() {
    const QStringList channels{"1", "2", "3", "4"};
    QCOMPARE(items_of(lite->combo("comboBox_KM_Control")), channels);
    QCOMPARE(items_of(lite->combo("comboBox_USB_Control")), channels);
    QCOMPARE(items_of(lite->combo("comboBox_Select_Display_Mode")),
             QStringList({"Absolute Mode", "Relative Mode"}));
    QCOMPARE(items_of(lite->combo("comboBox_Select_active_port")),
             QStringList({"Ports 1 and 2", "Ports 1, 2, and 3", "Ports 1, 2, 3, and 4"}));
    QCOMPARE(items_of(lite->combo("comboBox_Enable_or_Disable_Cursor_Roll")),
             QStringList({"Off", "On"}));
    QCOMPARE(lite->button("pushButton_Apply_mouse_parking").text(), "Apply");
    QCOMPARE(lite->button("pushButton_Factory_Reset").text(), " Factory Reset");
    QCOMPARE(lite->button("pushButton_Soft_Reset").text(), "Soft Reset");
    QCOMPARE(lite->button("pushButton_ON_Beep").text(), "Beep On");
    QCOMPARE(lite->button("pushButton_OFF_Beep").text(), "Beep Off");
}

void Test_Configuration::before_a_report_the_page_is_empty() {
    lite = std::make_unique<Lite_Fixture>();
    be_silent();
    lite->open();
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "");
    for (const char* field : {"lineEdit_MouseParking_x", "lineEdit_MouseParking_y"}) {
        QCOMPARE(lite->line_edit(field).text(), "");
        QVERIFY(lite->line_edit(field).validator() == nullptr);
        QCOMPARE(lite->line_edit(field).inputMask(), "");
    }
    for (const char* box :
         {"comboBox_KM_Control", "comboBox_USB_Control", "comboBox_Select_Display_Mode",
          "comboBox_Select_active_port", "comboBox_Enable_or_Disable_Cursor_Roll"}) {
        QCOMPARE(lite->combo(box).currentIndex(), 0);
    }
}

void Test_Configuration::the_third_km_channel_sends_its_five_bytes() {
    lite->combo("comboBox_KM_Control").setCurrentIndex(2);
    QVERIFY(wait_until([&] { return lite->device.received_bytes().endsWith('\r'); }));
    QCOMPARE(lite->device.received_bytes().toHex(' '), "2f 2f 63 33 0d");
}

void Test_Configuration::every_km_channel_sends_its_command() {
    QCOMPARE(commands_of_items("comboBox_KM_Control", {1, 2, 3, 0}),
             QByteArrayList({"//c2", "//c3", "//c4", "//c1"}));
}

void Test_Configuration::every_usb_channel_sends_its_command() {
    QCOMPARE(commands_of_items("comboBox_USB_Control", {1, 2, 3, 0}),
             QByteArrayList({"//u2", "//u3", "//u4", "//u1"}));
}

void Test_Configuration::every_port_limit_sends_its_command() {
    QCOMPARE(commands_of_items("comboBox_Select_active_port", {0, 1, 2}),
             QByteArrayList({"//D2", "//D3", "//D4"}));
}

void Test_Configuration::cursor_rolling_sends_its_commands() {
    QCOMPARE(commands_of_items("comboBox_Enable_or_Disable_Cursor_Roll", {1, 0}),
             QByteArrayList({"//o1", "//o0"}));
}

void Test_Configuration::a_custom_resolution_sends_its_number_in_the_list() {
    QCOMPARE(commands_of_items("comboBox_mouse_movement_resolution_setting_2", {12, 0}),
             QByteArrayList({"//CE 2 13", "//CE 2 1"}));
}

void Test_Configuration::on_channel_one_any_mouse_mode_sends_absolute() {
    QCOMPARE(lite->combo("comboBox_KM_Control").currentText(), "1");
    QCOMPARE(commands_of_items("comboBox_Select_Display_Mode", {1, 0, 1}),
             QByteArrayList({"//ks", "//ks", "//ks"}));
}

void Test_Configuration::on_any_other_channel_any_mouse_mode_sends_relative() {
    for (const int channel : {2, 3, 4}) {
        lite->combo("comboBox_KM_Control").setCurrentIndex(channel - 1);
        QCOMPARE(lite->commands().size(), 1);
        QCOMPARE(commands_of_items("comboBox_Select_Display_Mode", {1, 0}),
                 QByteArrayList({"//km", "//km"}));
    }
}

void Test_Configuration::choosing_the_same_item_again_sends_nothing() {
    QCOMPARE(commands_of_items("comboBox_USB_Control", {0, 0}), QByteArrayList());
}

void Test_Configuration::the_beep_buttons_act_as_one_toggle_before_any_answer() {
    QPushButton& on = lite->button("pushButton_ON_Beep");
    QPushButton& off = lite->button("pushButton_OFF_Beep");
    QVERIFY(!on.isEnabled() && off.isEnabled());
    QTest::mouseClick(&off, Qt::LeftButton);
    QVERIFY(on.isEnabled() && !off.isEnabled());
    QCOMPARE(lite->commands(), QByteArrayList{"//B0"});
    QTest::mouseClick(&on, Qt::LeftButton);
    QVERIFY(!on.isEnabled() && off.isEnabled());
    QCOMPARE(lite->commands(), QByteArrayList{"//B1"});
}

void Test_Configuration::mouse_parking_sends_both_fields_with_one_blank() {
    type_and_leave("lineEdit_MouseParking_x", "12");
    type_and_leave("lineEdit_MouseParking_y", "34");
    QCOMPARE(lite->commands(), QByteArrayList());
    QTest::mouseClick(&lite->button("pushButton_Apply_mouse_parking"), Qt::LeftButton);
    QCOMPARE(lite->commands(), QByteArrayList{"//MP 12 34"});
}

void Test_Configuration::empty_parking_fields_send_two_blanks() {
    lite->line_edit("lineEdit_MouseParking_x").clear();
    lite->line_edit("lineEdit_MouseParking_y").clear();
    lite->button("pushButton_Apply_mouse_parking").click();
    QCOMPARE(lite->commands(), QByteArrayList{"//MP  "});
}

void Test_Configuration::parking_fields_are_sent_as_they_stand() {
    lite->line_edit("lineEdit_MouseParking_x").setText(" 007 %s%n");
    lite->line_edit("lineEdit_MouseParking_y").setText("<b>\u20ac</b>");
    lite->button("pushButton_Apply_mouse_parking").click();
    QCOMPARE(lite->commands(), QByteArrayList{"//MP  007 %s%n <b>\xE2\x82\xAC</b>"});
}

void Test_Configuration::a_parking_value_outside_0_to_100_raises_the_box_on_leaving_its_field() {
    for (const char* field : {"lineEdit_MouseParking_x", "lineEdit_MouseParking_y"}) {
        for (const char* value : {"101", "500", "-1"}) {
            robot->expect(range_warning());
            type_and_leave(field, value);
            QVERIFY2(robot->done(), robot->why());
            QCOMPARE(lite->line_edit(field).text(), value);
        }
        // The next field must not raise it for this one.
        type_and_leave(field, "1");
    }
    QCOMPARE(robot->snapshots().size(), 6);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Configuration::a_parking_value_in_range_or_no_number_raises_no_box() {
    for (const char* field : {"lineEdit_MouseParking_x", "lineEdit_MouseParking_y"}) {
        for (const char* value : {"0", "100", " 7 ", "", "abc", "1.5", "99999999999999999999"}) {
            type_and_leave(field, value);
            QCOMPARE(robot->snapshots().size(), 0);
            QCOMPARE(lite->line_edit(field).text(), value);
        }
    }
}

void Test_Configuration::a_parking_value_out_of_range_is_kept_and_sent_all_the_same() {
    robot->expect(range_warning());
    type_and_leave("lineEdit_MouseParking_x", "500");
    QTest::mouseClick(&lite->button("pushButton_Apply_mouse_parking"), Qt::LeftButton);
    QCOMPARE(lite->commands(), QByteArrayList{"//MP 500 50"});
}

void Test_Configuration::the_parking_fields_are_never_disabled() {
    lite->button("pushButton_OFF_Connection").click();
    QVERIFY(!lite->button("pushButton_Apply_mouse_parking").isEnabled());
    type_and_leave("lineEdit_MouseParking_x", "33");
    QCOMPARE(lite->line_edit("lineEdit_MouseParking_x").text(), "33");
}

void Test_Configuration::off_leaves_the_values_and_deadens_the_page() {
    lite->combo("comboBox_USB_Control").setCurrentIndex(3);
    lite->button("pushButton_OFF_Connection").click();
    QCOMPARE(lite->combo("comboBox_USB_Control").currentIndex(), 3);
    QCOMPARE(lite->label("label_Current_Hotkey_Trigger_Data").text(), "Left Ctrl");
    QVERIFY(!lite->combo("comboBox_USB_Control").isEnabled());
}

void Test_Configuration::a_box_changed_while_ui_changes_are_disabled_sends_nothing() {
    // A load whose dialog is open has cleared the flag; the custom names are removed before,
    // because removing them would set it again.
    lite->button("pushButton_Refresh").click();
    QCOMPARE(lite->commands().size(), 3);
    robot->expect({.class_name = "QFileDialog", .action = [this](QWidget& dialog) {
                       for (const char* box :
                            {"comboBox_KM_Control", "comboBox_USB_Control",
                             "comboBox_Select_Display_Mode", "comboBox_Select_active_port",
                             "comboBox_Enable_or_Disable_Cursor_Roll"}) {
                           lite->combo(box).setCurrentIndex(1);
                       }
                       for (int channel = 1; channel <= 4; ++channel) {
                           lite->resolution(channel).setCurrentIndex(1);
                       }
                       // The buttons do not check the flag.
                       lite->button("pushButton_Soft_Reset").click();
                       return press_key(Qt::Key_Escape)(dialog);
                   }});
    lite->button("pushButton_Load_Settings_File").click();
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 1);
    QCOMPARE(lite->commands(), QByteArrayList({"//R", "//rl", "//??", "//BP"}));
}

void Test_Configuration::nothing_is_sent_while_writing_is_disabled() {
    // The box about a bad line is open while the line is applied, with writing disabled. A notice
    // that arrives meanwhile enables the boxes to send.
    const QTemporaryDir folder;
    QFile file(folder.filePath("settings.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("KM Control: //c1\nCustom mouse movement setting 1: short\n");
    for (int number = 2; number <= 4; ++number) {
        file.write("Custom mouse movement setting " + QByteArray::number(number) +
                   ": //MM C1 100 100 DESK\n");
    }
    file.close();
    robot->expect({.class_name = "QFileDialog", .action = choose_file(file.fileName())});
    robot->expect({.class_name = "QMessageBox",
                   .text = "Error in setting the interface",
                   .icon = QMessageBox::Warning,
                   .action = [this](QWidget& box) {
                       if (!lite->say("**U 3\n")) {
                           return QString("the notice did not come");
                       }
                       lite->combo("comboBox_KM_Control").setCurrentIndex(3);
                       lite->button("pushButton_Soft_Reset").click();
                       lite->button("pushButton_Apply_mouse_parking").click();
                       return press_button("OK")(box);
                   }});
    lite->button("pushButton_Load_Settings_File").click();
    QCOMPARE(lite->combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(lite->combo("comboBox_KM_Control").currentIndex(), 3);
    QCOMPARE(lite->commands(),
             QByteArrayList({"//c1", "short", "//MM C1 100 100 DESK", "//MM C1 100 100 DESK",
                             "//MM C1 100 100 DESK", "", "", "", ""}));
    lite->combo("comboBox_KM_Control").setCurrentIndex(1);
    QCOMPARE(lite->commands(), QByteArrayList{"//c2"});
}

QTEST_MAIN(Test_Configuration)

#include "test_configuration.moc"
