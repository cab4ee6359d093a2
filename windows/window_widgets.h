// SPDX-License-Identifier: MIT

#pragma once

#include "pages/page_widgets.h"

#include <array>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTextEdit;

/// The window around the pages.
struct Chrome_Widgets {
    QPushButton& ConfigurationBtn;
    QPushButton& pushButton_Mouse_Speed_Settings;
    QPushButton& TopologyAndDisplayBtn;
    QPushButton& pushButton_Refresh;
    QStackedWidget& stackedWidget;
};

/// All widgets that the common code uses.
struct Window_Widgets {
    Left_Menu_Widgets left_menu;
    Chrome_Widgets chrome;
    Configuration_Widgets configuration;
    Mouse_Speed_Widgets mouse_speed;
    Layout_Widgets layout;
    QTextEdit& textEdit_Main_Terminal;
    std::optional<Audio_Widgets> audio;
};

// Filled from any of the three forms, each struct by one template. A form has the widgets that its
// model needs; whether a model has audio is decided by the table of model differences.

template <class Form>
std::array<QComboBox*, channel_count> resolution_combo_boxes(const Form& form) {
    return {form.comboBox_mouse_movement_resolution_setting_1,
            form.comboBox_mouse_movement_resolution_setting_2,
            form.comboBox_mouse_movement_resolution_setting_3,
            form.comboBox_mouse_movement_resolution_setting_4};
}

/// The Pro's form names the custom entry's widgets with a trailing "_2".
template <class Form>
QPushButton* custom_setting_submit_button(const Form& form) {
    if constexpr (requires { form.pushButton_Submit_Custom_Mouse_Movement_Settings_2; }) {
        return form.pushButton_Submit_Custom_Mouse_Movement_Settings_2;
    } else {
        return form.pushButton_Submit_Custom_Mouse_Movement_Settings;
    }
}

template <class Form>
std::vector<QPushButton*> configuration_controls(const Form& form) {
    std::vector<QPushButton*> controls{form.pushButton_Create_Settings_File,
                                       form.pushButton_Load_Settings_File, form.pushButton_Refresh,
                                       form.pushButtonSubmit};
    if constexpr (requires { form.pushButton_AudioSubmit; }) {
        controls.push_back(form.pushButton_AudioSubmit);
    }
    controls.insert(controls.end(),
                    {custom_setting_submit_button(form), form.pushButton_Apply_mouse_parking,
                     form.pushButton_Factory_Reset, form.pushButton_Soft_Reset,
                     form.pushButton_ON_Beep, form.pushButton_OFF_Beep,
                     form.pushButton_Mouse_Speed_Settings, form.TopologyAndDisplayBtn});
    if constexpr (requires { form.pushButton_Admin_Settings; }) {
        controls.push_back(form.pushButton_Admin_Settings);
    }
    return controls;
}

template <class Form>
std::vector<QComboBox*> setting_widgets(const Form& form) {
    std::vector<QComboBox*> widgets{
        form.comboBox_KM_Control, form.comboBox_USB_Control, form.comboBox_Select_Display_Mode,
        form.comboBox_Select_active_port, form.comboBox_Enable_or_Disable_Cursor_Roll};
    const auto resolutions = resolution_combo_boxes(form);
    widgets.insert(widgets.end(), resolutions.begin(), resolutions.end());
    return widgets;
}

template <class Form>
Mouse_Speed_Widgets mouse_speed_widgets(const Form& form) {
    const std::array<QLabel*, channel_count> labels{form.label_Custom_1, form.label_Custom_2,
                                                    form.label_Custom_3, form.label_Custom_4};
    if constexpr (requires { form.lineEdit_Mouse_Movement_Name_2; }) {
        return {*form.comboBox_number_of_setting,
                *form.lineEdit_Mouse_Movement_Name_2,
                *form.lineEdit_Mouse_Movement_X_2,
                *form.lineEdit_Mouse_Movement_Y_2,
                labels,
                resolution_combo_boxes(form)};
    } else {
        return {*form.comboBox_number_of_setting,
                *form.lineEdit_Mouse_Movement_Name,
                *form.lineEdit_Mouse_Movement_X,
                *form.lineEdit_Mouse_Movement_Y,
                labels,
                resolution_combo_boxes(form)};
    }
}

template <class Form>
Configuration_Widgets configuration_widgets(const Form& form) {
    return {*form.comboBox_KM_Control,
            *form.comboBox_USB_Control,
            *form.label_Current_Hotkey_Trigger_Data,
            *form.comboBox_Select_Display_Mode,
            *form.comboBox_Select_active_port,
            *form.comboBox_Enable_or_Disable_Cursor_Roll,
            *form.lineEdit_MouseParking_x,
            *form.lineEdit_MouseParking_y,
            *form.pushButton_ON_Beep,
            *form.pushButton_OFF_Beep};
}

template <class Form>
std::optional<Audio_Widgets> audio_widgets(const Form& form) {
    if constexpr (requires { form.checkBox_FOLLOW; }) {
        return Audio_Widgets{
            *form.checkBox_ALL,
            *form.checkBox_FOLLOW,
            {form.checkBox_ch1, form.checkBox_ch2, form.checkBox_ch3, form.checkBox_ch4}};
    } else {
        return std::nullopt;
    }
}

template <class Form>
std::optional<Network_Widgets> network_widgets(const Form& form) {
    if constexpr (requires { form.label_name_of_USR; }) {
        return Network_Widgets{*form.label_Select_port, *form.label_current_Ip,
                               *form.label_name_of_USR, *form.pushButton_Admin_Settings};
    } else {
        return std::nullopt;
    }
}

template <class Form>
Window_Widgets window_widgets(const Form& form) {
    return {{*form.pushButton_Connection_Indicator, *form.pushButton_ON_Connection,
             *form.pushButton_OFF_Connection, *form.comboBox_SelectPort,
             configuration_controls(form), setting_widgets(form), network_widgets(form)},
            {*form.ConfigurationBtn, *form.pushButton_Mouse_Speed_Settings,
             *form.TopologyAndDisplayBtn, *form.pushButton_Refresh, *form.stackedWidget},
            configuration_widgets(form),
            mouse_speed_widgets(form),
            {*form.tableWidget, *form.comboBox_Select_active_port},
            *form.textEdit_Main_Terminal,
            audio_widgets(form)};
}
