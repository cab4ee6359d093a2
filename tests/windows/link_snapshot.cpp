// SPDX-License-Identifier: MIT

#include "tests/windows/link_snapshot.h"

#include "tests/support/find_child.h"

#include <set>

namespace {

const QString green = "background-color: green; border-radius: 10px; height: 20px; width: 20px;";
const QString red = "background-color: red; border-radius: 10px; height: 20px; width: 20px;";

QString word(bool is_enabled) { return is_enabled ? "enabled" : "disabled"; }

} // namespace

QString shown_link_state(const Lite_Fixture& lite) {
    const QString style = lite.button("pushButton_Connection_Indicator").styleSheet();
    const QString colour = style == green ? "green" : style == red ? "red" : style;
    std::set<bool> enabled;
    for (const QString& name : link_controls()) {
        enabled.insert(find_child<QWidget>(lite.window(), name).isEnabled());
    }
    return QString("%1, ON %2, OFF %3, controls %4")
        .arg(colour, word(lite.button("pushButton_ON_Connection").isEnabled()),
             word(lite.button("pushButton_OFF_Connection").isEnabled()),
             enabled.size() == 1 ? word(*enabled.begin()) : "mixed");
}

const QStringList& link_controls() {
    static const QStringList controls{
        "pushButton_Create_Settings_File",
        "pushButton_Load_Settings_File",
        "pushButton_Refresh",
        "pushButtonSubmit",
        "pushButton_Submit_Custom_Mouse_Movement_Settings",
        "pushButton_Apply_mouse_parking",
        "pushButton_Factory_Reset",
        "pushButton_Soft_Reset",
        "pushButton_ON_Beep",
        "pushButton_OFF_Beep",
        "pushButton_Mouse_Speed_Settings",
        "TopologyAndDisplayBtn",
        "comboBox_KM_Control",
        "comboBox_USB_Control",
        "comboBox_Select_Display_Mode",
        "comboBox_Select_active_port",
        "comboBox_Enable_or_Disable_Cursor_Roll",
        "comboBox_mouse_movement_resolution_setting_1",
        "comboBox_mouse_movement_resolution_setting_2",
        "comboBox_mouse_movement_resolution_setting_3",
        "comboBox_mouse_movement_resolution_setting_4",
    };
    return controls;
}
