// SPDX-License-Identifier: MIT

#include "tests/support/modal_robot.h"
#include "tests/support/model_fixture.h"

#include <QTest>

#include <functional>

/// Each control of each window does what its name says: each window connects its controls one by
/// one.
class Test_Model_Controls : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void each_control_sends_its_command();
    void a_custom_entry_is_sent_by_its_submit_button();
    void a_custom_entry_is_shown_when_it_is_chosen();
    void each_page_button_brings_its_page();
    void either_parking_field_warns_when_it_is_left_with_another_number();

private:
    /// The Pro's names of the custom entry's widgets end with "_2".
    [[nodiscard]] QString custom(const QString& name) const {
        return fixture->window().findChild<QWidget*>(name) != nullptr ? name : name + "_2";
    }

    std::unique_ptr<Window_Fixture> fixture;
    std::unique_ptr<Modal_Robot> robot;
};

using Step = std::function<void(const Window_Fixture& window)>;

namespace {

Step choose(const QString& combo, int index) {
    return [combo, index](const Window_Fixture& at) { at.combo(combo).setCurrentIndex(index); };
}

Step click(const QString& button) {
    return [button](const Window_Fixture& at) { at.button(button).click(); };
}

void park_at_a_corner(const Window_Fixture& at) {
    at.line_edit("lineEdit_MouseParking_x").setText("0");
    at.line_edit("lineEdit_MouseParking_y").setText("100");
    at.button("pushButton_Apply_mouse_parking").click();
}

} // namespace

void Test_Model_Controls::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    robot = std::make_unique<Modal_Robot>();
    fixture = make_model_fixture(model, *robot);
    QVERIFY(fixture->open_filled());
}

void Test_Model_Controls::cleanup() {
    fixture.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Model_Controls::each_control_sends_its_command() {
    const std::pair<Step, QByteArrayList> controls[] = {
        {choose("comboBox_KM_Control", 1), {"//c2"}},
        {choose("comboBox_USB_Control", 2), {"//u3"}},
        {choose("comboBox_Select_active_port", 0), {"//D2"}},
        {choose("comboBox_Enable_or_Disable_Cursor_Roll", 1), {"//o1"}},
        {park_at_a_corner, {"//MP 0 100"}},
        {click("pushButton_OFF_Beep"), {"//B0"}},
        {click("pushButton_ON_Beep"), {"//B1"}},
        {choose("comboBox_mouse_movement_resolution_setting_1", 9), {"//CE 1 10"}},
        {choose("comboBox_mouse_movement_resolution_setting_2", 10), {"//CE 2 11"}},
        {choose("comboBox_mouse_movement_resolution_setting_3", 11), {"//CE 3 12"}},
        {choose("comboBox_mouse_movement_resolution_setting_4", 12), {"//CE 4 13"}},
        {click("pushButton_Soft_Reset"), {"//R"}},
    };
    for (const auto& [use, commands] : controls) {
        use(*fixture);
        QCOMPARE(fixture->commands(), commands);
    }
}

void Test_Model_Controls::a_custom_entry_is_sent_by_its_submit_button() {
    fixture->combo("comboBox_number_of_setting").setCurrentIndex(1);
    fixture->line_edit(custom("lineEdit_Mouse_Movement_X")).setText("150");
    fixture->line_edit(custom("lineEdit_Mouse_Movement_Y")).setText("7");
    fixture->line_edit(custom("lineEdit_Mouse_Movement_Name")).setText("My desk");
    fixture->button(custom("pushButton_Submit_Custom_Mouse_Movement_Settings")).click();
    QCOMPARE(fixture->commands(), QByteArrayList{"//MM CC2 150 7 My desk "});
}

void Test_Model_Controls::a_custom_entry_is_shown_when_it_is_chosen() {
    const QLineEdit& name = fixture->line_edit(custom("lineEdit_Mouse_Movement_Name"));
    const auto entries = Switch_State().custom_entries;
    for (const int index : {2, 3, 1, 0}) {
        fixture->combo("comboBox_number_of_setting").setCurrentIndex(index);
        QCOMPARE(name.text().toUtf8(), entries.at(static_cast<std::size_t>(index)).name);
    }
}

void Test_Model_Controls::each_page_button_brings_its_page() {
    const std::pair<QString, QString> pages[] = {
        {"TopologyAndDisplayBtn", "tableWidget"},
        {"pushButton_Mouse_Speed_Settings", "comboBox_number_of_setting"},
        {"ConfigurationBtn", "comboBox_KM_Control"}};
    for (const auto& [button, widget_of_page] : pages) {
        fixture->button(button).click();
        for (const auto& [other_button, widget] : pages) {
            QCOMPARE(fixture->window().findChild<QWidget*>(widget)->isVisible(),
                     widget == widget_of_page);
        }
    }
}

void Test_Model_Controls::either_parking_field_warns_when_it_is_left_with_another_number() {
    for (const char* field : {"lineEdit_MouseParking_x", "lineEdit_MouseParking_y"}) {
        robot->expect({.class_name = "QMessageBox",
                       .text = "Mouse Parking Range is between 0-100",
                       .action = press_button("OK")});
        fixture->line_edit(field).setText("101");
        QMetaObject::invokeMethod(&fixture->line_edit(field), "editingFinished");
        QVERIFY2(robot->done(), robot->why());
    }
}

QTEST_MAIN(Test_Model_Controls)

#include "test_model_controls.moc"
