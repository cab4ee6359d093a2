// SPDX-License-Identifier: MIT

#include "app/select_km_type_dialog.h"
#include "app/yes_no_dialog.h"
#include "tests/support/assistance_snapshot.h"
#include "tests/support/find_child.h"
#include "tests/support/model_fixture.h"
#include "tests/support/wait_until.h"
#include "usr/change_setting_for_usr_dialog.h"
#include "usr/credentials_dialog.h"
#include "usr/select_connection_method_dialog.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

/// The windows and dialogs by keyboard alone, and what a screen reader gets of them. Those that
/// need an adapter are in test_wizard_keyboard.
class Test_Model_Assistance : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void every_control_has_a_name_data() { add_model_rows(); }
    void every_control_has_a_name();
    void labels_are_buddies_of_their_controls_data() { add_model_rows(); }
    void labels_are_buddies_of_their_controls();
    void the_indicator_is_heard_as_its_state_data() { add_model_rows(); }
    void the_indicator_is_heard_as_its_state();
    void tiles_are_heard_as_channel_and_cell_data() { add_model_rows(); }
    void tiles_are_heard_as_channel_and_cell();
    void tab_leads_through_each_page_and_back_data() { add_model_rows(); }
    void tab_leads_through_each_page_and_back();

    void a_dialog_begins_where_one_types_first_data();
    void a_dialog_begins_where_one_types_first();
    void enter_on_the_factory_reset_cancels_data() { add_model_rows(); }
    void enter_on_the_factory_reset_cancels();
    void enter_in_the_admin_settings_changes_nothing();

private:
    void open(Switch_Model model);

    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Window_Fixture> fixture;
};

namespace {

bool has_network(Switch_Model model) { return model != Switch_Model::lite; }
bool has_audio(Switch_Model model) { return model == Switch_Model::pro; }

/// The Pro names some widgets with a trailing "_2".
QString custom(Switch_Model model, const QString& name) {
    return has_audio(model) ? name + "_2" : name;
}

QStringList stated_names(Switch_Model model) {
    QStringList names{
        "pushButton_Refresh: Refresh",
        "ConfigurationBtn: Configuration",
        "pushButton_Mouse_Speed_Settings: Mouse Speed Settings",
        "TopologyAndDisplayBtn: Layout",
        "comboBox_SelectPort: Select port",
        "pushButton_ON_Connection: Connection On",
        "pushButton_OFF_Connection: Connection Off",
        "pushButton_Create_Settings_File: Create Settings File",
        "pushButton_Load_Settings_File: Load Settings File",
        "pushButton_Connection_Indicator: connected",
        "comboBox_KM_Control: KM Control",
        "comboBox_USB_Control: USB Control",
        "comboBox_Select_Display_Mode: Mouse Mode",
        "comboBox_Select_active_port: Active Ports",
        "comboBox_Enable_or_Disable_Cursor_Roll: Cursor Rolling",
        "lineEdit_MouseParking_x: Mouse Parking x-axis",
        "lineEdit_MouseParking_y: Mouse Parking y-axis",
        "pushButton_Apply_mouse_parking: Apply Mouse Parking",
        "pushButton_Factory_Reset:  Factory Reset",
        "pushButton_Soft_Reset: Soft Reset",
        "pushButton_ON_Beep: Beep On",
        "pushButton_OFF_Beep: Beep Off",
        "textEdit_Main_Terminal: Terminal",
        "comboBox_number_of_setting: Number of custom setting",
        custom(model, "lineEdit_Mouse_Movement_Name") + ": Name of custom setting",
        custom(model, "lineEdit_Mouse_Movement_X") + ": X of custom setting",
        custom(model, "lineEdit_Mouse_Movement_Y") + ": Y of custom setting",
        custom(model, "pushButton_Submit_Custom_Mouse_Movement_Settings") + ": Submit",
        "comboBox_mouse_movement_resolution_setting_1: Mouse movement resolution of channel 1",
        "comboBox_mouse_movement_resolution_setting_2: Mouse movement resolution of channel 2",
        "comboBox_mouse_movement_resolution_setting_3: Mouse movement resolution of channel 3",
        "comboBox_mouse_movement_resolution_setting_4: Mouse movement resolution of channel 4",
        "tableWidget: Layout",
        "pushButtonSubmit: Submit",
        "textEdit: Answers",
        "lineEdit_Command: Command",
        "pushButton_Send_Command: SEND",
    };
    if (has_network(model)) {
        names << "pushButton_Admin_Settings: Admin Settings"
              << "pushButton_Connection_Settings: Connection Settings";
    }
    if (has_audio(model)) {
        names << "checkBox_ALL: ALL"
              << "checkBox_FOLLOW: FOLLOW"
              << "checkBox_ch1: Channel 1"
              << "checkBox_ch2: Channel 2"
              << "checkBox_ch3: Channel 3"
              << "checkBox_ch4: Channel 4"
              << "pushButton_AudioSubmit: Audio Submit";
    }
    names.sort();
    return names;
}

/// In a connected window over a serial line.
QStringList menu_walk(Switch_Model model) {
    QStringList names{"pushButton_Connection_Indicator",
                      "pushButton_Refresh",
                      "ConfigurationBtn",
                      "pushButton_Mouse_Speed_Settings",
                      "TopologyAndDisplayBtn",
                      "comboBox_SelectPort",
                      "pushButton_OFF_Connection",
                      "pushButton_Create_Settings_File",
                      "pushButton_Load_Settings_File"};
    if (has_network(model)) {
        names << "pushButton_Connection_Settings";
    }
    return names;
}

QStringList page_walk(Switch_Model model, const QString& page_button) {
    if (page_button == "ConfigurationBtn") {
        QStringList names{"comboBox_KM_Control", "comboBox_USB_Control"};
        if (has_audio(model)) {
            names << "checkBox_ALL"
                  << "checkBox_FOLLOW"
                  << "checkBox_ch1"
                  << "checkBox_ch2"
                  << "checkBox_ch3"
                  << "checkBox_ch4"
                  << "pushButton_AudioSubmit";
        }
        return names + QStringList{"comboBox_Select_Display_Mode",
                                   "comboBox_Select_active_port",
                                   "comboBox_Enable_or_Disable_Cursor_Roll",
                                   "lineEdit_MouseParking_x",
                                   "lineEdit_MouseParking_y",
                                   "pushButton_Apply_mouse_parking",
                                   "pushButton_Factory_Reset",
                                   "pushButton_Soft_Reset",
                                   "pushButton_OFF_Beep",
                                   "textEdit_Main_Terminal"};
    }
    if (page_button == "TopologyAndDisplayBtn") {
        return {"tableWidget", "pushButtonSubmit"};
    }
    return {"comboBox_number_of_setting",
            custom(model, "lineEdit_Mouse_Movement_Name"),
            custom(model, "lineEdit_Mouse_Movement_X"),
            custom(model, "lineEdit_Mouse_Movement_Y"),
            custom(model, "pushButton_Submit_Custom_Mouse_Movement_Settings"),
            "comboBox_mouse_movement_resolution_setting_1",
            "comboBox_mouse_movement_resolution_setting_2",
            "comboBox_mouse_movement_resolution_setting_3",
            "comboBox_mouse_movement_resolution_setting_4"};
}

} // namespace

void Test_Model_Assistance::cleanup() {
    fixture.reset();
    if (robot) {
        QVERIFY2(robot->done(), robot->why());
        robot.reset();
    }
    QCOMPARE(windows_left(), QStringList());
}

void Test_Model_Assistance::open(Switch_Model model) {
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
    QVERIFY(fixture->open_filled());
    QVERIFY(wait_until([&] { return fixture->window().isActiveWindow(); }));
}

void Test_Model_Assistance::every_control_has_a_name() {
    QFETCH(Switch_Model, model);
    open(model);
    QCOMPARE(accessible_names(fixture->window()), stated_names(model));
}

void Test_Model_Assistance::labels_are_buddies_of_their_controls() {
    QFETCH(Switch_Model, model);
    open(model);
    QStringList pairs;
    for (const QLabel* label : fixture->window().findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            pairs << label->text().trimmed() + " > " + label->buddy()->objectName();
        }
    }
    pairs.sort();
    QStringList expected{
        "Active Ports: > comboBox_Select_active_port",
        "Cursor Rolling: > comboBox_Enable_or_Disable_Cursor_Roll",
        "KM Control: > comboBox_KM_Control",
        "Mouse Mode: > comboBox_Select_Display_Mode",
        "NAME > " + custom(model, "lineEdit_Mouse_Movement_Name"),
        "Select port > comboBox_SelectPort",
        "USB Control: > comboBox_USB_Control",
        "X > " + custom(model, "lineEdit_Mouse_Movement_X"),
        "Y > " + custom(model, "lineEdit_Mouse_Movement_Y"),
        "x-axis > lineEdit_MouseParking_x",
        "y-axis > lineEdit_MouseParking_y",
        "1 > comboBox_mouse_movement_resolution_setting_1",
        "2 > comboBox_mouse_movement_resolution_setting_2",
        "3 > comboBox_mouse_movement_resolution_setting_3",
        "4 > comboBox_mouse_movement_resolution_setting_4",
        "\u2116 > comboBox_number_of_setting",
    };
    expected.sort();
    QCOMPARE(pairs, expected);
}

void Test_Model_Assistance::the_indicator_is_heard_as_its_state() {
    QFETCH(Switch_Model, model);
    open(model);
    const QPushButton& indicator = fixture->button("pushButton_Connection_Indicator");
    QCOMPARE(indicator.accessibleName(), "connected");
    QCOMPARE(indicator.text(), "");
    fixture->button("pushButton_OFF_Connection").click();
    QCOMPARE(indicator.accessibleName(), "not connected");
    QCOMPARE(indicator.text(), "");
    fixture->button("pushButton_ON_Connection").click();
    QCOMPARE(indicator.accessibleName(), "not connected");
    QVERIFY(fixture->wait_connected());
    QCOMPARE(indicator.accessibleName(), "connected");
}

void Test_Model_Assistance::tiles_are_heard_as_channel_and_cell() {
    QFETCH(Switch_Model, model);
    open(model);
    QCOMPARE(accessible_cells(fixture->window(), "tableWidget"),
             (QStringList{"Channel 1, cell 1", "Channel 2, cell 2", "Channel 3, cell 3",
                          "Channel 4, cell 4"}));
    // As after dragging a tile: the same tile in another cell.
    auto& table = find_child<QTableWidget>(fixture->window(), "tableWidget");
    const QSignalBlocker quiet(table);
    table.setItem(2, 1, table.takeItem(0, 3));
    QCOMPARE(accessible_cells(fixture->window(), "tableWidget"),
             (QStringList{"Channel 1, cell 1", "Channel 2, cell 2", "Channel 3, cell 3",
                          "Channel 4, cell 10"}));
}

void Test_Model_Assistance::tab_leads_through_each_page_and_back() {
    QFETCH(Switch_Model, model);
    open(model);
    for (const char* page_button :
         {"ConfigurationBtn", "pushButton_Mouse_Speed_Settings", "TopologyAndDisplayBtn"}) {
        QPushButton& button = fixture->button(page_button);
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Space);
        fixture->button("pushButton_Connection_Indicator").setFocus();
        QStringList walk = tab_walk(fixture->window());
        // The window itself takes the focus as well, but there is nothing to press.
        walk.removeAll(fixture->window().objectName());
        QCOMPARE(walk, menu_walk(model) + page_walk(model, page_button));
    }
}

void Test_Model_Assistance::a_dialog_begins_where_one_types_first_data() {
    using Maker = std::function<std::unique_ptr<QDialog>()>;
    QTest::addColumn<Maker>("make");
    QTest::addColumn<QStringList>("walk");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QString>("enter");
    QTest::newRow("model") << Maker([] { return std::make_unique<Select_KM_type_Dialog>(); })
                           << QStringList{"radioButton_PRO", "pushButton_Continue"}
                           << QStringList{"pushButton_Continue: Continue", "radioButton_LITE: Lite",
                                          "radioButton_PLUS: Plus", "radioButton_PRO: Pro"}
                           << "pushButton_Continue";
    QTest::newRow("method") << Maker([] {
        return std::make_unique<Select_connection_method_Dialog>();
    }) << QStringList{"radioButton_TCP_IP", "pushButton_continue"}
                            << QStringList{"pushButton_continue: Continue",
                                           "radioButton_RS232: RS232 (Serial)",
                                           "radioButton_TCP_IP: TCP/IP (Network)"}
                            << "pushButton_continue";
    QTest::newRow("login") << Maker([] {
        return std::make_unique<Credentials_Dialog>("127.0.0.2", QStringList());
    }) << QStringList{"lineEdit_username", "lineEdit_password", "pushButton_ip_allocation"}
                           << QStringList{"lineEdit_password: Password",
                                          "lineEdit_username: Username",
                                          "pushButton_ip_allocation: Continue"}
                           << "pushButton_ip_allocation";
    QTest::newRow("admin settings") << Maker([] {
        return std::make_unique<Change_setting_for_USR_Dialog>("", "", "", "", "", "", "", "");
    }) << QStringList{"lineEdit_Name", "lineEdit_Username", "lineEdit_Password", "pushButton_Apply"}
                                    << QStringList{"lineEdit_Name: New Device Name",
                                                   "lineEdit_Password: New Password",
                                                   "lineEdit_Username: New Username",
                                                   "pushButton_Apply: Apply"}
                                    << "";
    QTest::newRow("question") << Maker([] {
        return std::make_unique<Yes_No_Dialog>("Sure?", "Confirm", "Cancel");
    }) << QStringList{"pushButton_Cancel", "pushButton_OK"}
                              << QStringList{"pushButton_Cancel: Cancel", "pushButton_OK: Confirm"}
                              << "pushButton_Cancel";
}

void Test_Model_Assistance::a_dialog_begins_where_one_types_first() {
    QFETCH(std::function<std::unique_ptr<QDialog>()>, make);
    QFETCH(QStringList, walk);
    QFETCH(QStringList, names);
    QFETCH(QString, enter);
    const auto dialog = make();
    dialog->show();
    QVERIFY(wait_until([&] { return dialog->isActiveWindow(); }));
    QCOMPARE(tab_walk(*dialog), walk);
    QCOMPARE(accessible_names(*dialog), names);
    // Which button Enter presses, with the focus where it starts.
    QString pressed;
    for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
        button->disconnect(dialog.get());
        connect(button, &QPushButton::clicked, this,
                [&, button] { pressed += button->objectName(); });
    }
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    QCOMPARE(pressed, enter);
}

void Test_Model_Assistance::enter_on_the_factory_reset_cancels() {
    QFETCH(Switch_Model, model);
    open(model);
    robot->expect({.class_name = "Yes_No_Dialog", .action = press_key(Qt::Key_Return)});
    QPushButton& reset = fixture->button("pushButton_Factory_Reset");
    reset.setFocus();
    QTest::keyClick(&reset, Qt::Key_Space);
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(fixture->commands(), QByteArrayList());
}

void Test_Model_Assistance::enter_in_the_admin_settings_changes_nothing() {
    Change_setting_for_USR_Dialog dialog("", "", "", "", "", "", "", "");
    dialog.show();
    for (const char* field : {"lineEdit_Name", "lineEdit_Username", "lineEdit_Password"}) {
        QTest::keyClick(&find_child<QLineEdit>(dialog, field), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QVERIFY(!dialog.is_settings_applied());
    }
}

QTEST_MAIN(Test_Model_Assistance)

#include "test_model_assistance.moc"
