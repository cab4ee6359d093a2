// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QMetaMethod>
#include <QTest>

#include <functional>

/// All commands of the Lite to the switch, each from the widget or the slot that sends it.
class Test_Lite_Commands : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void each_control_sends_its_command_data();
    void each_control_sends_its_command();
    void every_resolution_of_every_channel_has_its_command();
    void every_custom_entry_has_its_command();
    void a_factory_reset_goes_out_only_after_its_confirmation_data();
    void a_factory_reset_goes_out_only_after_its_confirmation();
    void a_layout_goes_out_when_its_box_is_dismissed();
    void saving_settings_asks_for_the_status_alone();
    void a_confirmed_layout_is_asked_for();
    void commands_end_in_one_carriage_return_and_no_line_feed();
    void while_the_program_moves_widgets_the_boxes_send_nothing_and_the_buttons_do();
    void the_send_box_of_the_hidden_page_has_no_command();
    void the_ways_of_writing_can_be_called_as_slots();

private:
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Modal_Robot> robot;
};

using Step = std::function<void(const Lite_Fixture& lite)>;
Q_DECLARE_METATYPE(Step)

namespace {

/// Chooses an item of a box, as a user does, or two in a row.
Step choose(const QString& combo, const QList<int>& indices) {
    return [combo, indices](const Lite_Fixture& lite) {
        for (const int index : indices) {
            lite.combo(combo).setCurrentIndex(index);
        }
    };
}

Step click(const QString& button) {
    return [button](const Lite_Fixture& lite) { lite.button(button).click(); };
}

Step park(const QString& x, const QString& y) {
    return [x, y](const Lite_Fixture& lite) {
        lite.line_edit("lineEdit_MouseParking_x").setText(x);
        lite.line_edit("lineEdit_MouseParking_y").setText(y);
        lite.button("pushButton_Apply_mouse_parking").click();
    };
}

void add_row(const char* name, const Step& step, const QByteArrayList& commands) {
    QTest::newRow(name) << step << commands;
}

Modal_Expectation layout_box() {
    return {.class_name = "QMessageBox",
            .text = "Display topology has been updated",
            .action = press_button("OK")};
}

} // namespace

void Test_Lite_Commands::initTestCase() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void Test_Lite_Commands::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
}

void Test_Lite_Commands::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Lite_Commands::each_control_sends_its_command_data() {
    QTest::addColumn<Step>("step");
    QTest::addColumn<QByteArrayList>("commands");

    add_row("refresh", click("pushButton_Refresh"), {"//rl", "//??", "//BP"});
    add_row("off, then on",
            [](const Lite_Fixture& window) {
                window.button("pushButton_OFF_Connection").click();
                window.button("pushButton_ON_Connection").click();
            },
            {"//rl", "//??", "//BP"});

    const QString km = "comboBox_KM_Control";
    add_row("KM 2, then 1", choose(km, {1, 0}), {"//c2", "//c1"});
    add_row("KM 3", choose(km, {2}), {"//c3"});
    add_row("KM 4", choose(km, {3}), {"//c4"});
    const QString usb = "comboBox_USB_Control";
    add_row("USB 2, then 1", choose(usb, {1, 0}), {"//u2", "//u1"});
    add_row("USB 3", choose(usb, {2}), {"//u3"});
    add_row("USB 4", choose(usb, {3}), {"//u4"});

    const QString ports = "comboBox_Select_active_port";
    add_row("two ports", choose(ports, {0}), {"//D2"});
    add_row("three ports", choose(ports, {1}), {"//D3"});
    add_row("four ports", choose(ports, {0, 2}), {"//D2", "//D4"});

    // The channel of keyboard and mouse decides, whichever mode is chosen.
    const QString mode = "comboBox_Select_Display_Mode";
    add_row("mouse mode on channel 1", choose(mode, {1, 0}), {"//ks", "//ks"});
    add_row("mouse mode on channel 2",
            [=](const Lite_Fixture& window) {
                choose(km, {1})(window);
                choose(mode, {1, 0})(window);
            },
            {"//c2", "//km", "//km"});

    const QString roll = "comboBox_Enable_or_Disable_Cursor_Roll";
    add_row("cursor rolling on, then off", choose(roll, {1, 0}), {"//o1", "//o0"});

    add_row("parking", park("0", "100"), {"//MP 0 100"});
    add_row("parking, empty", park("", ""), {"//MP  "});
    add_row("parking, unchecked", park("-1", "far"), {"//MP -1 far"});

    add_row("buzzer off", click("pushButton_OFF_Beep"), {"//B0"});
    add_row("buzzer off, then on",
            [](const Lite_Fixture& window) {
                window.button("pushButton_OFF_Beep").click();
                window.button("pushButton_ON_Beep").click();
            },
            {"//B0", "//B1"});
    add_row("soft reset", click("pushButton_Soft_Reset"), {"//R"});
    add_row("fourth custom entry of channel 2",
            choose("comboBox_mouse_movement_resolution_setting_2", {12}), {"//CE 2 13"});
}

void Test_Lite_Commands::each_control_sends_its_command() {
    QFETCH(Step, step);
    QFETCH(QByteArrayList, commands);
    step(*lite);
    QCOMPARE(lite->commands(), commands);
}

void Test_Lite_Commands::every_resolution_of_every_channel_has_its_command() {
    constexpr int highest = 13;
    for (int channel = 1; channel <= 4; ++channel) {
        QByteArrayList expected;
        // From the highest down, so that each choice is a change.
        for (int number = highest; number >= 1; --number) {
            lite->resolution(channel).setCurrentIndex(number - 1);
            expected.append("//CE " + QByteArray::number(channel) + ' ' +
                            QByteArray::number(number));
        }
        QCOMPARE(lite->commands(), expected);
    }
}

void Test_Lite_Commands::every_custom_entry_has_its_command() {
    for (int entry = 1; entry <= 4; ++entry) {
        lite->combo("comboBox_number_of_setting").setCurrentIndex(entry - 1);
        lite->line_edit("lineEdit_Mouse_Movement_X").setText("150");
        lite->line_edit("lineEdit_Mouse_Movement_Y").setText("7");
        lite->line_edit("lineEdit_Mouse_Movement_Name").setText("My desk");
        lite->button("pushButton_Submit_Custom_Mouse_Movement_Settings").click();
        // A second C, and a blank at the end.
        const QByteArray command = "//MM CC" + QByteArray::number(entry) + " 150 7 My desk ";
        QCOMPARE(lite->commands(), QByteArrayList{command});
    }
}

void Test_Lite_Commands::a_factory_reset_goes_out_only_after_its_confirmation_data() {
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QByteArrayList>("commands");
    QTest::newRow("Confirm") << "Confirm" << QByteArrayList{"//F"};
    QTest::newRow("Cancel") << "Cancel" << QByteArrayList();
}

void Test_Lite_Commands::a_factory_reset_goes_out_only_after_its_confirmation() {
    QFETCH(QString, answer);
    QFETCH(QByteArrayList, commands);
    robot->expect({.class_name = "Yes_No_Dialog",
                   .text = "Perform factory reset?",
                   .buttons = QStringList{"Confirm", "Cancel"},
                   .action = press_button(answer)});
    lite->button("pushButton_Factory_Reset").click();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), commands);
}

void Test_Lite_Commands::a_layout_goes_out_when_its_box_is_dismissed() {
    robot->expect(layout_box());
    lite->button("pushButtonSubmit").click();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), QByteArrayList{"//FF01B01FF02B02FF03B03FF04B04"});
}

void Test_Lite_Commands::saving_settings_asks_for_the_status_alone() {
    robot->expect({.class_name = "QFileDialog", .action = press_key(Qt::Key_Escape)});
    lite->button("pushButton_Create_Settings_File").click();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), QByteArrayList{"//rl"});
}

void Test_Lite_Commands::a_confirmed_layout_is_asked_for() {
    lite->device.send("Saving horizontal dimension as 4\n");
    QVERIFY(wait_until([&] { return !lite->device.received_commands().isEmpty(); }));
    QCOMPARE(lite->commands(), QByteArrayList{"//BP"});
}

void Test_Lite_Commands::commands_end_in_one_carriage_return_and_no_line_feed() {
    choose("comboBox_KM_Control", {2})(*lite);
    lite->button("pushButton_Soft_Reset").click();
    const QByteArray expected = "//c3\r//R\r";
    QVERIFY(wait_until([&] { return lite->device.received_bytes().size() >= expected.size(); }));
    QCOMPARE(lite->device.received_bytes(), expected);
}

void Test_Lite_Commands::
    while_the_program_moves_widgets_the_boxes_send_nothing_and_the_buttons_do() {
    Fault_Plan lacking;
    lacking.missing_key = "C1\t";
    lite->device.set_faults(lacking);
    robot->expect({.text = "Setting data from TQL error", .action = [&](QWidget& box) {
                       // As long as this box is open, changes count as made by the program.
                       lite->device.clear_record();
                       choose("comboBox_KM_Control", {1})(*lite);
                       choose("comboBox_USB_Control", {1})(*lite);
                       choose("comboBox_Select_active_port", {0})(*lite);
                       choose("comboBox_Select_Display_Mode", {1})(*lite);
                       choose("comboBox_Enable_or_Disable_Cursor_Roll", {1})(*lite);
                       choose("comboBox_mouse_movement_resolution_setting_1", {3})(*lite);
                       park("1", "2")(*lite);
                       (void)lite->run_slot("on_pushButton_OFF_Beep_clicked");
                       lite->button("pushButton_Soft_Reset").click();
                       return press_button("OK")(box);
                   }});
    lite->button("pushButton_Refresh").click();
    QVERIFY(wait_until([&] { return robot->done(); }, 20'000));
    const QByteArrayList expected{"//MP 1 2", "//B0", "//R"};
    QCOMPARE(lite->commands(), expected);
    // The flag is set again once the box is closed.
    choose("comboBox_KM_Control", {3})(*lite);
    QCOMPARE(lite->commands(), QByteArrayList{"//c4"});
}

void Test_Lite_Commands::the_send_box_of_the_hidden_page_has_no_command() {
    lite->line_edit("lineEdit_Command").setText("//F");
    lite->button("pushButton_Send_Command").click();
    QTest::keyClick(&lite->line_edit("lineEdit_Command"), Qt::Key_Return);
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Lite_Commands::the_ways_of_writing_can_be_called_as_slots() {
    const QMetaObject& meta = *lite->window().metaObject();
    for (const char* slot : {"writeCommand(std::string&)", "writeCommand(std::string&&)",
                             "writeData(QByteArray)", "send_initial_command()",
                             "send_information_command()", "send_current_layout_command()"}) {
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    }
    QVERIFY(lite->run_slot("send_initial_command"));
    QVERIFY(lite->run_slot("send_information_command"));
    QVERIFY(lite->run_slot("send_current_layout_command"));
    QVERIFY(QMetaObject::invokeMethod(&lite->window(), "writeData", Q_ARG(QByteArray, "//R\r")));
    const QByteArrayList expected{"//rl", "//??", "//BP", "//R"};
    QCOMPARE(lite->commands(), expected);
}

QTEST_MAIN(Test_Lite_Commands)

#include "test_lite_commands.moc"
