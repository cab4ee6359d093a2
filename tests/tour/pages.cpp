#include "tests/tour/pages.h"

#include "tests/tour/sights.h"

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
void see_all(Visitor& visitor, const std::array<Shown_Text, count>& settings) {
    for (const Shown_Text& setting : settings) {
        visitor.see_shown(setting.widget, setting.text);
    }
}

void see_grid(Visitor& visitor, const QString& texts) {
    visitor.see("the layout " + texts, [texts] { return sights::grid_texts().join('|') == texts; });
}

void pick(Visitor& visitor, const QString& combo_box, const QString& item, const QString& command) {
    visitor.choose(combo_box, item);
    visitor.see_received(1, command);
    visitor.tell(QString("%1 on \"%2\": the unit received %3").arg(combo_box, item, command));
}

} // namespace

void see_factory_settings(Visitor& visitor) {
    visitor.see("the green indicator", [] {
        const QWidget* indicator = sights::find("pushButton_Connection_Indicator");
        return indicator != nullptr && indicator->styleSheet().contains("green");
    });
    visitor.see_enabled("pushButton_OFF_Connection", true);
    see_all(visitor, factory_settings);
    see_grid(visitor, factory_grid);
    visitor.see_enabled("pushButton_OFF_Beep", true);
    visitor.see_enabled("pushButton_ON_Beep", false);
    visitor.take_picture("filled-page");
    visitor.tell("connected, the indicator is green, the pages hold the unit's report: hotkey " +
                 visitor.shown("label_Current_Hotkey_Trigger_Data") + ", entry C1 " +
                 visitor.shown("label_Custom_1"));
}

void change_configuration(Visitor& visitor) {
    pick(visitor, "comboBox_KM_Control", "2", "//c2");
    pick(visitor, "comboBox_USB_Control", "3", "//u3");
    pick(visitor, "comboBox_Select_Display_Mode", "Relative Mode", "//km");
    pick(visitor, "comboBox_Select_active_port", "Ports 1, 2, and 3", "//D3");
    pick(visitor, "comboBox_Select_active_port", "Ports 1, 2, 3, and 4", "//D4");
    pick(visitor, "comboBox_Enable_or_Disable_Cursor_Roll", "On", "//o1");

    visitor.type("lineEdit_MouseParking_x", "20");
    visitor.type("lineEdit_MouseParking_y", "80");
    visitor.click("pushButton_Apply_mouse_parking");
    visitor.see_received(1, "//MP 20 80");
    visitor.tell("mouse parked at 20, 80: the unit received //MP 20 80");

    visitor.click("pushButton_OFF_Beep");
    visitor.see_received(1, "//B0");
    visitor.see_enabled("pushButton_OFF_Beep", false);
    visitor.take_picture("configured");
    visitor.tell("buzzer off: the unit received //B0, and only Beep On can be pressed now");
}

void change_mouse_speeds(Visitor& visitor) {
    visitor.click("pushButton_Mouse_Speed_Settings");
    visitor.type("lineEdit_Mouse_Movement_Name", "STUDIO");
    visitor.type("lineEdit_Mouse_Movement_X", "150");
    visitor.type("lineEdit_Mouse_Movement_Y", "300");
    visitor.click("pushButton_Submit_Custom_Mouse_Movement_Settings");
    visitor.see_received(1, "//MM CC1 150 300 STUDIO ");
    visitor.see_shown("label_Custom_1", "150 300 STUDIO");
    visitor.take_picture("custom-entry");
    visitor.tell("entry C1 stored and read back: " + visitor.shown("label_Custom_1"));

    pick(visitor, "comboBox_mouse_movement_resolution_setting_1", "STUDIO", "//CE 1 10");
    pick(visitor, "comboBox_mouse_movement_resolution_setting_2", "4K", "//CE 2 2");
}

void rearrange_displays(Visitor& visitor) {
    visitor.click("TopologyAndDisplayBtn");
    visitor.take_picture("layout-before");
    visitor.drag_tile(4, 7);
    see_grid(visitor, changed_grid);
    visitor.take_picture("layout-dragged");
    visitor.tell("the tile of channel 4 dragged from the end of the first row under channel 3");

    visitor.click("pushButtonSubmit");
    visitor.answer_box("Display topology has been updated");
    visitor.see_received(1, "//FF01B01FF02B02FF03B03FF04B07");
    visitor.see_received(1, "//BP");
    see_grid(visitor, changed_grid);
    visitor.tell("layout submitted and asked back: the unit received FF04B07, then //BP");
}

void change_everything(Visitor& visitor) {
    see_factory_settings(visitor);
    change_configuration(visitor);
    change_mouse_speeds(visitor);
    rearrange_displays(visitor);
}

void change_audio(Visitor& visitor) {
    visitor.click("ConfigurationBtn");
    visitor.see_shown("checkBox_ALL", "checked");
    visitor.click("checkBox_ch1");
    visitor.click("checkBox_ch3");
    visitor.see_shown("checkBox_ALL", "unchecked");
    visitor.click("pushButton_AudioSubmit");
    visitor.see_received(1, "//a 1 3");
    visitor.take_picture("audio");
    visitor.tell("audio on channels 1 and 3: the unit received //a 1 3");
}

void see_changed_settings(Visitor& visitor) {
    see_all(visitor, changed_settings);
    see_grid(visitor, changed_grid);
    visitor.see_enabled("pushButton_ON_Beep", true);
    visitor.see_enabled("pushButton_OFF_Beep", false);
}

void see_changed_audio(Visitor& visitor) {
    visitor.see_shown("checkBox_ALL", "unchecked");
    visitor.see_shown("checkBox_ch1", "checked");
    visitor.see_shown("checkBox_ch2", "unchecked");
    visitor.see_shown("checkBox_ch3", "checked");
}
