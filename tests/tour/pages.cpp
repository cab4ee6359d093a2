// SPDX-License-Identifier: MIT

#include "tests/tour/pages.h"

#include "tests/tour/on_screen.h"

#include <QApplication>

#include <array>

namespace {

struct Shown_Text {
    const char* widget;
    const char* text;
};

constexpr std::array factory_settings = {
    Shown_Text{"comboBox_KM_Control", "1"},
    Shown_Text{"comboBox_USB_Control", "1"},
    Shown_Text{"label_Current_Hotkey_Trigger_Data", "Left Ctrl"},
    Shown_Text{"comboBox_Select_Display_Mode", "Absolute Mode"},
    Shown_Text{"comboBox_Select_active_port", "Ports 1, 2, 3, and 4"},
    Shown_Text{"comboBox_Enable_or_Disable_Cursor_Roll", "Off"},
    Shown_Text{"lineEdit_MouseParking_x", "50"},
    Shown_Text{"lineEdit_MouseParking_y", "50"},
    Shown_Text{"label_Custom_1", "100 100 DESK"},
    Shown_Text{"label_Custom_4", "100 100 ROOM"},
    Shown_Text{"comboBox_mouse_movement_resolution_setting_1", "1080p"},
    Shown_Text{"comboBox_mouse_movement_resolution_setting_2", "1080p"},
};

constexpr std::array changed_settings = {
    Shown_Text{"comboBox_KM_Control", "2"},
    Shown_Text{"comboBox_USB_Control", "3"},
    Shown_Text{"label_Current_Hotkey_Trigger_Data", "Left Ctrl"},
    Shown_Text{"comboBox_Select_Display_Mode", "Relative Mode"},
    Shown_Text{"comboBox_Select_active_port", "Ports 1, 2, 3, and 4"},
    Shown_Text{"comboBox_Enable_or_Disable_Cursor_Roll", "On"},
    Shown_Text{"lineEdit_MouseParking_x", "20"},
    Shown_Text{"lineEdit_MouseParking_y", "80"},
    Shown_Text{"label_Custom_1", "150 300 STUDIO"},
    Shown_Text{"label_Custom_4", "100 100 ROOM"},
    Shown_Text{"comboBox_mouse_movement_resolution_setting_1", "STUDIO"},
    Shown_Text{"comboBox_mouse_movement_resolution_setting_2", "4K"},
};

const char factory_grid[] = "Channel 1|Channel 2|Channel 3|Channel 4|-|-|-|-|-|-|-|-|-|-|-|-";
const char changed_grid[] = "Channel 1|Channel 2|Channel 3|-|-|-|Channel 4|-|-|-|-|-|-|-|-|-";

template <std::size_t count>
void see_all(Tour_Driver& driver, const std::array<Shown_Text, count>& settings) {
    for (const Shown_Text& setting : settings) {
        driver.see_shown(setting.widget, setting.text);
    }
}

void see_grid(Tour_Driver& driver, const QString& texts) {
    driver.see("the layout " + texts,
               [texts] { return on_screen::grid_texts().join('|') == texts; });
}

void pick(Tour_Driver& driver, const QString& combo_box, const QString& item,
          const QString& command) {
    driver.choose(combo_box, item);
    driver.see_received(1, command);
    driver.report_step(QString("%1 on \"%2\": the unit received %3").arg(combo_box, item, command));
}

} // namespace

void see_factory_settings(Tour_Driver& driver) {
    driver.see("the green indicator", [] {
        const QWidget* indicator = on_screen::find("pushButton_Connection_Indicator");
        return indicator != nullptr && indicator->styleSheet().contains("green");
    });
    driver.see_enabled("pushButton_OFF_Connection", true);
    see_all(driver, factory_settings);
    see_grid(driver, factory_grid);
    driver.see_enabled("pushButton_OFF_Beep", true);
    driver.see_enabled("pushButton_ON_Beep", false);
    driver.take_picture("filled-page");
    driver.report_step(
        "connected, the indicator is green, the pages hold the unit's report: hotkey " +
        driver.shown("label_Current_Hotkey_Trigger_Data") + ", entry C1 " +
        driver.shown("label_Custom_1"));
}

void change_configuration(Tour_Driver& driver) {
    pick(driver, "comboBox_KM_Control", "2", "//c2");
    pick(driver, "comboBox_USB_Control", "3", "//u3");
    pick(driver, "comboBox_Select_Display_Mode", "Relative Mode", "//km");
    pick(driver, "comboBox_Select_active_port", "Ports 1, 2, and 3", "//D3");
    pick(driver, "comboBox_Select_active_port", "Ports 1, 2, 3, and 4", "//D4");
    pick(driver, "comboBox_Enable_or_Disable_Cursor_Roll", "On", "//o1");

    driver.type("lineEdit_MouseParking_x", "20");
    driver.type("lineEdit_MouseParking_y", "80");
    driver.click("pushButton_Apply_mouse_parking");
    driver.see_received(1, "//MP 20 80");
    driver.report_step("mouse parked at 20, 80: the unit received //MP 20 80");

    driver.click("pushButton_OFF_Beep");
    driver.see_received(1, "//B0");
    driver.see_enabled("pushButton_OFF_Beep", false);
    driver.take_picture("configured");
    driver.report_step("buzzer off: the unit received //B0, and only Beep On can be pressed now");
}

void cancel_factory_reset(Tour_Driver& driver) {
    driver.click("pushButton_Factory_Reset");
    driver.see_shown("label_message", "Perform factory reset?");
    driver.take_picture("factory-reset");
    driver.click_button("Cancel");
    driver.see("the end of the question",
               [] { return QApplication::activeModalWidget() == nullptr; });
    driver.report_step("factory reset asked for and cancelled");
}

void change_mouse_speeds(Tour_Driver& driver) {
    driver.click("pushButton_Mouse_Speed_Settings");
    driver.type("lineEdit_Mouse_Movement_Name", "STUDIO");
    driver.type("lineEdit_Mouse_Movement_X", "150");
    driver.type("lineEdit_Mouse_Movement_Y", "300");
    driver.click("pushButton_Submit_Custom_Mouse_Movement_Settings");
    driver.see_received(1, "//MM CC1 150 300 STUDIO ");
    driver.see_shown("label_Custom_1", "150 300 STUDIO");
    driver.take_picture("custom-entry");
    driver.report_step("entry C1 stored and read back: " + driver.shown("label_Custom_1"));

    pick(driver, "comboBox_mouse_movement_resolution_setting_1", "STUDIO", "//CE 1 10");
    pick(driver, "comboBox_mouse_movement_resolution_setting_2", "4K", "//CE 2 2");
}

void rearrange_displays(Tour_Driver& driver) {
    driver.click("TopologyAndDisplayBtn");
    driver.take_picture("layout-before");
    driver.drag_tile(4, 7);
    see_grid(driver, changed_grid);
    driver.take_picture("layout-dragged");
    driver.report_step(
        "the tile of channel 4 dragged from the end of the first row under channel 3");

    driver.click("pushButtonSubmit");
    driver.answer_box("Display topology has been updated");
    driver.see_received(1, "//FF01B01FF02B02FF03B03FF04B07");
    driver.see_layout_read_back(1);
    see_grid(driver, changed_grid);
    driver.report_step("layout submitted and asked back: the unit received FF04B07, then //BP");
}

void change_everything(Tour_Driver& driver) {
    see_factory_settings(driver);
    change_configuration(driver);
    cancel_factory_reset(driver);
    change_mouse_speeds(driver);
    rearrange_displays(driver);
}

void change_audio(Tour_Driver& driver) {
    driver.click("ConfigurationBtn");
    driver.see_shown("checkBox_ALL", "checked");
    driver.click("checkBox_ch1");
    driver.click("checkBox_ch3");
    driver.see_shown("checkBox_ALL", "unchecked");
    driver.click("pushButton_AudioSubmit");
    driver.see_received(1, "//a 1 3");
    driver.take_picture("audio");
    driver.report_step("audio on channels 1 and 3: the unit received //a 1 3");
}

void see_changed_settings(Tour_Driver& driver) {
    see_all(driver, changed_settings);
    see_grid(driver, changed_grid);
    driver.see_enabled("pushButton_ON_Beep", true);
    driver.see_enabled("pushButton_OFF_Beep", false);
}

void see_changed_audio(Tour_Driver& driver) {
    driver.see_shown("checkBox_ALL", "unchecked");
    driver.see_shown("checkBox_ch1", "checked");
    driver.see_shown("checkBox_ch2", "unchecked");
    driver.see_shown("checkBox_ch3", "checked");
}
