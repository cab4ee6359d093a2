// SPDX-License-Identifier: MIT

#pragma once

#include "windows/connection_wizard.h"
#include "windows/main_window_controller.h"

#include <QMainWindow>

#include <memory>
#include <string>

namespace Ui {
class Corvane_PRO_UI;
}

/// The main window of the Pro: a Plus that also routes audio.
class Halvern_Velmoran_PRO : public QMainWindow {
    Q_OBJECT

public:
    explicit Halvern_Velmoran_PRO(QWidget* parent = nullptr);
    ~Halvern_Velmoran_PRO() override;

    void writeCommand(std::string& command) { controller.session.writer.writeCommand(command); }
    void writeCommand(std::string&& command) {
        controller.session.writer.writeCommand(std::move(command));
    }
    void writeData(QByteArray bytes) { controller.session.writer.writeData(bytes); }
    void send_initial_command() { controller.session.writer.send_initial_command(); }
    void send_information_command() { controller.session.writer.send_information_command(); }
    void send_current_layout_command() { controller.session.writer.send_current_layout_command(); }

private slots:
    // Link
    void serialRecieve() { controller.session.serialRecieve(); }
    void onReadyRead() { controller.session.onReadyRead(); }
    void is_not_Connected_Message() { controller.session.is_not_Connected_Message(); }
    void get_data_from_TQL_by_serial_port() {
        controller.session.replies.get_data_from_TQL_by_serial_port();
    }
    void set_current_layout_from_buff() { controller.set_current_layout_from_buff(); }
    void scroll_Cursor_to_the_end() { controller.terminal.scroll_Cursor_to_the_end(); }

    // Left menu
    void refresh_UI() { controller.session.refresh_UI(); }
    void enable_refresh_button() { controller.chrome.enable_refresh_button(); }
    void disable_refresh_button() { controller.chrome.disable_refresh_button(); }
    void on_pushButton_Refresh_clicked() { controller.chrome.refresh_clicked(); }
    void on_ConfigurationBtn_clicked() { controller.chrome.show_configuration_page(); }
    void on_pushButton_Mouse_Speed_Settings_clicked() { controller.chrome.show_mouse_speed_page(); }
    void on_TopologyAndDisplayBtn_clicked() { controller.chrome.show_layout_page(); }
    void on_comboBox_SelectPort_currentIndexChanged() { controller.menu.port_changed(); }
    void on_pushButton_ON_Connection_clicked() { controller.menu.turn_on(); }
    void on_pushButton_OFF_Connection_clicked() { controller.session.turn_off(); }
    void on_pushButton_Connection_Settings_clicked() { wizard.run(); }
    void on_pushButton_Admin_Settings_clicked() { wizard.change_admin_settings(); }
    void on_pushButton_Create_Settings_File_clicked() {
        controller.settings.create_settings_file();
    }
    void on_pushButton_Load_Settings_File_clicked() { controller.settings.load_settings_file(); }
    void load_second_part_of_settings() { controller.settings.load_second_part_of_settings(); }

    // Configuration page
    void on_comboBox_KM_Control_currentIndexChanged() {
        controller.configuration.km_control_changed();
    }
    void on_comboBox_USB_Control_currentIndexChanged() {
        controller.configuration.usb_control_changed();
    }
    void on_comboBox_Select_Display_Mode_currentIndexChanged() {
        controller.configuration.mouse_mode_changed();
    }
    void on_comboBox_Select_active_port_currentIndexChanged() {
        controller.configuration.active_ports_changed();
    }
    void on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged() {
        controller.configuration.cursor_roll_changed();
    }
    void on_lineEdit_MouseParking_x_editingFinished() {
        controller.configuration.parking_x_edited();
    }
    void on_lineEdit_MouseParking_y_editingFinished() {
        controller.configuration.parking_y_edited();
    }
    void on_pushButton_Apply_mouse_parking_clicked() {
        controller.configuration.apply_mouse_parking();
    }
    void on_pushButton_Factory_Reset_clicked() { controller.configuration.factory_reset(); }
    void on_pushButton_Soft_Reset_clicked() { controller.configuration.soft_reset(); }
    void on_pushButton_ON_Beep_clicked() { controller.configuration.beep_on(); }
    void on_pushButton_OFF_Beep_clicked() { controller.configuration.beep_off(); }

    // Audio panel
    void on_checkBox_ALL_clicked() { controller.audio->all_clicked(); }
    void on_checkBox_FOLLOW_clicked() { controller.audio->follow_clicked(); }
    void on_checkBox_ch1_clicked() { controller.audio->channel_clicked(); }
    void on_checkBox_ch2_clicked() { controller.audio->channel_clicked(); }
    void on_checkBox_ch3_clicked() { controller.audio->channel_clicked(); }
    void on_checkBox_ch4_clicked() { controller.audio->channel_clicked(); }
    void on_pushButton_AudioSubmit_clicked() { controller.audio->submit(); }
    /// Not connected: the form has no widget with the name "pushButton".
    void on_pushButton_clicked() { controller.session.writer.send_audio_query(); }

    // Mouse speed page
    void on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged() {
        controller.mouse_speed.resolution_changed(1);
    }
    void on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged() {
        controller.mouse_speed.resolution_changed(2);
    }
    void on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged() {
        controller.mouse_speed.resolution_changed(3);
    }
    void on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged() {
        controller.mouse_speed.resolution_changed(4);
    }
    void on_comboBox_number_of_setting_currentIndexChanged(int index) {
        controller.mouse_speed.number_of_setting_changed(index);
    }
    void on_pushButton_Submit_Custom_Mouse_Movement_Settings_2_clicked() {
        controller.mouse_speed.submit_custom_setting();
    }

    // Layout page
    void on_pushButtonSubmit_clicked() { controller.layout.submit(); }
    void on_tableWidget_cellChanged(int row, int column) {
        controller.layout.cell_changed(row, column);
    }
    void on_tableWidget_cellPressed(int row, int column) {
        controller.layout.cell_pressed(row, column);
    }

private:
    std::unique_ptr<Ui::Corvane_PRO_UI> ui;
    Main_Window_Controller controller;
    Connection_Wizard wizard;
};
