// SPDX-License-Identifier: MIT

#pragma once

#include "link/channels.h"

#include <array>
#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

/// The widgets that the common code uses; each page gets only its own struct.

/// The widgets that show which link is in use, on a model with a network link.
struct Network_Widgets {
    QLabel& label_Select_port;
    QLabel& label_current_Ip;
    QLabel& label_name_of_USR;
    QPushButton& pushButton_Admin_Settings;
};

struct Left_Menu_Widgets {
    QPushButton& pushButton_Connection_Indicator;
    QPushButton& pushButton_ON_Connection;
    QPushButton& pushButton_OFF_Connection;
    QComboBox& comboBox_SelectPort;
    /// The buttons that act on a connected switch.
    std::vector<QPushButton*> configuration_controls;
    /// The setting combo boxes that follow the connection state.
    std::vector<QComboBox*> setting_widgets;
    std::optional<Network_Widgets> network;
};

struct Configuration_Widgets {
    QComboBox& comboBox_KM_Control;
    QComboBox& comboBox_USB_Control;
    QLabel& label_Current_Hotkey_Trigger_Data;
    QComboBox& comboBox_Select_Display_Mode;
    QComboBox& comboBox_Select_active_port;
    QComboBox& comboBox_Enable_or_Disable_Cursor_Roll;
    QLineEdit& lineEdit_MouseParking_x;
    QLineEdit& lineEdit_MouseParking_y;
    QPushButton& pushButton_ON_Beep;
    QPushButton& pushButton_OFF_Beep;
};

struct Mouse_Speed_Widgets {
    QComboBox& comboBox_number_of_setting;
    QLineEdit& lineEdit_Mouse_Movement_Name;
    QLineEdit& lineEdit_Mouse_Movement_X;
    QLineEdit& lineEdit_Mouse_Movement_Y;
    std::array<QLabel*, channel_count> custom_setting_labels;
    std::array<QComboBox*, channel_count> resolution_combo_boxes;
};

struct Layout_Widgets {
    QTableWidget& tableWidget;
    QComboBox& comboBox_Select_active_port;
};

/// The audio panel, on a model that has one.
struct Audio_Widgets {
    QCheckBox& checkBox_ALL;
    QCheckBox& checkBox_FOLLOW;
    std::array<QCheckBox*, channel_count> channels;
};
