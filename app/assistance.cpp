// SPDX-License-Identifier: MIT

#include "app/assistance.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

namespace {

/// The name of a control.
struct Control_Name {
    const char* form; ///< nullptr: any form that has the control
    const char* control;
    const char* label; ///< next to the control; nullptr if there is none
    const char* name;  ///< nullptr: the label's text
};

constexpr const char* lite = "Corvane_LITE_UI";
constexpr const char* plus = "Corvane_UI";
constexpr const char* pro = "Corvane_PRO_UI";

constexpr Control_Name control_names[] = {
    {nullptr, "pushButton_Refresh", nullptr, "Refresh"},
    {nullptr, "comboBox_SelectPort", "label_Select_port", nullptr},
    {nullptr, "pushButton_ON_Connection", nullptr, "Connection On"},
    {nullptr, "pushButton_OFF_Connection", nullptr, "Connection Off"},

    {nullptr, "comboBox_KM_Control", "label_4", nullptr},
    {nullptr, "comboBox_USB_Control", "label_18", nullptr},
    {nullptr, "checkBox_ch1", nullptr, "Channel 1"},
    {nullptr, "checkBox_ch2", nullptr, "Channel 2"},
    {nullptr, "checkBox_ch3", nullptr, "Channel 3"},
    {nullptr, "checkBox_ch4", nullptr, "Channel 4"},
    {nullptr, "comboBox_Select_Display_Mode", "label_5", nullptr},
    {nullptr, "comboBox_Select_active_port", "label_7", nullptr},
    {nullptr, "comboBox_Enable_or_Disable_Cursor_Roll", "label_3", nullptr},
    {nullptr, "lineEdit_MouseParking_x", "label_46", "Mouse Parking x-axis"},
    {nullptr, "lineEdit_MouseParking_y", "label_51", "Mouse Parking y-axis"},
    {nullptr, "pushButton_Apply_mouse_parking", nullptr, "Apply Mouse Parking"},
    {nullptr, "textEdit_Main_Terminal", nullptr, "Terminal"},

    {lite, "comboBox_number_of_setting", "label_15", "Number of custom setting"},
    {plus, "comboBox_number_of_setting", "label_16", "Number of custom setting"},
    {pro, "comboBox_number_of_setting", "label_26", "Number of custom setting"},
    {nullptr, "lineEdit_Mouse_Movement_Name", "label_12", "Name of custom setting"},
    {nullptr, "lineEdit_Mouse_Movement_X", "label_13", "X of custom setting"},
    {nullptr, "lineEdit_Mouse_Movement_Y", "label_14", "Y of custom setting"},
    {pro, "lineEdit_Mouse_Movement_Name_2", "label_16", "Name of custom setting"},
    {pro, "lineEdit_Mouse_Movement_X_2", "label_17", "X of custom setting"},
    {pro, "lineEdit_Mouse_Movement_Y_2", "label_22", "Y of custom setting"},
    {nullptr, "comboBox_mouse_movement_resolution_setting_1", "label_47",
     "Mouse movement resolution of channel 1"},
    {nullptr, "comboBox_mouse_movement_resolution_setting_2", "label_48",
     "Mouse movement resolution of channel 2"},
    {nullptr, "comboBox_mouse_movement_resolution_setting_3", "label_49",
     "Mouse movement resolution of channel 3"},
    {nullptr, "comboBox_mouse_movement_resolution_setting_4", "label_50",
     "Mouse movement resolution of channel 4"},

    {nullptr, "tableWidget", nullptr, "Layout"},
    {nullptr, "textEdit", nullptr, "Answers"},
    {nullptr, "lineEdit_Command", nullptr, "Command"},

    {"Select_hardware_Dialog", "comboBox", "label", nullptr},
    {"Credentials_Dialog", "lineEdit_username", "label", nullptr},
    {"Credentials_Dialog", "lineEdit_password", "label_2", nullptr},
    {"IP_Settings_Dialog", "radioButton_DHCP", nullptr, "IP Allocation: DHCP"},
    {"IP_Settings_Dialog", "radioButton_Static", nullptr, "IP Allocation: Static"},
    {"IP_Settings_Dialog", "lineEdit_IPv4_Address", "label_11", nullptr},
    {"IP_Settings_Dialog", "lineEdit_Subnet_Mask", "label_10", nullptr},
    {"IP_Settings_Dialog", "lineEdit_Default_Gateway", "label_12", nullptr},
    {"Change_setting_for_USR_Dialog", "lineEdit_Name", "label_2", nullptr},
    {"Change_setting_for_USR_Dialog", "lineEdit_Username", "label_3", nullptr},
    {"Change_setting_for_USR_Dialog", "lineEdit_Password", "label_4", nullptr},
};

/// How a dialog starts if Qt's own choice does not fit. Qt gives the focus to the first control in
/// the tab order, and Enter presses the first button.
struct Dialog_Start {
    const char* form;
    /// The button that Enter presses; nullptr if the only button changes a device.
    const char* button;
    /// Gets the focus if it is enabled; nullptr for Qt's choice.
    const char* focus;
};

constexpr Dialog_Start dialog_starts[] = {
    {"Select_KM_type_Dialog", "pushButton_Continue", "radioButton_PRO"},
    {"Select_hardware_Dialog", "pushButton_Continue", nullptr},
    {"IP_Settings_Dialog", "pushButton_Connect", "lineEdit_IPv4_Address"},
    {"Change_setting_for_USR_Dialog", nullptr, nullptr},
    {"Yes_No_Dialog", "pushButton_Cancel", nullptr},
};

/// "USB Control:  " is read as "USB Control".
QString spoken(const QString& label_text) {
    QString text = label_text.trimmed();
    if (text.endsWith(':')) {
        text.chop(1);
    }
    return text;
}

void name_controls(const QWidget& window) {
    for (const Control_Name& row : control_names) {
        auto* control = window.findChild<QWidget*>(row.control);
        if (control == nullptr || (row.form != nullptr && window.objectName() != row.form)) {
            continue;
        }
        auto* label = row.label != nullptr ? window.findChild<QLabel*>(row.label) : nullptr;
        const QString name = row.name != nullptr ? QString(row.name) : spoken(label->text());
        control->setAccessibleName(name);
        if (label != nullptr) {
            // On Linux a combo box is named by its label; its own name is the selected item.
            label->setBuddy(control);
            label->setAccessibleName(name);
            if (label->parentWidget() != control->parentWidget()) {
                // Qt looks for the label of a control in the same frame only.
                control->setAccessibleDescription(name);
            }
        }
    }
}

void choose_enter_button(const QWidget& dialog, const char* name) {
    for (auto* button : dialog.findChildren<QPushButton*>()) {
        // Otherwise the first of them would handle Enter.
        button->setAutoDefault(name != nullptr);
        button->setDefault(name != nullptr && button->objectName() == name);
    }
}

void choose_first_focus(const QWidget& dialog, const char* name) {
    auto* control = name != nullptr ? dialog.findChild<QWidget*>(name) : nullptr;
    if (control != nullptr && control->isEnabled()) {
        control->setFocus();
    }
}

} // namespace

void assist_keyboard_and_screen_reader(QWidget& window) {
    name_controls(window);
    for (const Dialog_Start& start : dialog_starts) {
        if (window.objectName() == start.form) {
            choose_enter_button(window, start.button);
            choose_first_focus(window, start.focus);
        }
    }
    for (auto* table : window.findChildren<QTableWidget*>()) {
        table->setTabKeyNavigation(false);
    }
}
