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

    void writeCommand(std::string& command) { body.writer.writeCommand(command); }
    void writeCommand(std::string&& command) { body.writer.writeCommand(std::move(command)); }
    void writeData(QByteArray bytes) { body.writer.writeData(bytes); }
    void send_initial_command() { body.writer.send_initial_command(); }
    void send_information_command() { body.writer.send_information_command(); }
    void send_current_layout_command() { body.writer.send_current_layout_command(); }

private slots:
    // Link
    void serialRecieve() { body.serialRecieve(); }
    void onReadyRead() { body.onReadyRead(); }
    void is_not_Connected_Message() { network.is_not_Connected_Message(); }
    void get_data_from_TQL_by_serial_port() { body.replies.get_data_from_TQL_by_serial_port(); }
    void set_current_layout_from_buff() { body.set_current_layout_from_buff(); }
    void scroll_Cursor_to_the_end() { body.terminal.scroll_Cursor_to_the_end(); }

    // Left menu
    void refresh_UI() { body.connection.refresh_UI(); }
    void enable_refresh_button() { body.frame.enable_refresh_button(); }
    void disable_refresh_button() { body.frame.disable_refresh_button(); }
    void on_pushButton_Refresh_clicked() { body.frame.refresh_clicked(); }
    void on_ConfigurationBtn_clicked() { body.frame.show_configuration_page(); }
    void on_pushButton_Mouse_Speed_Settings_clicked() { body.frame.show_mouse_speed_page(); }
    void on_TopologyAndDisplayBtn_clicked() { body.frame.show_layout_page(); }
    void on_comboBox_SelectPort_currentIndexChanged() { body.connection.port_changed(); }
    void on_pushButton_ON_Connection_clicked() { network.turn_on(); }
    void on_pushButton_OFF_Connection_clicked() { body.connection.turn_off(); }
    void on_pushButton_Connection_Settings_clicked() { wizard.run(); }
    void on_pushButton_Admin_Settings_clicked() { wizard.change_admin_settings(); }
    void on_pushButton_Create_Settings_File_clicked() { body.settings.create_settings_file(); }
    void on_pushButton_Load_Settings_File_clicked() { body.settings.load_settings_file(); }
    void load_second_part_of_settings() { body.settings.load_second_part_of_settings(); }

    // Configuration page
    void on_comboBox_KM_Control_currentIndexChanged() { body.configuration.km_control_changed(); }
    void on_comboBox_USB_Control_currentIndexChanged() { body.configuration.usb_control_changed(); }
    void on_comboBox_Select_Display_Mode_currentIndexChanged() {
        body.configuration.mouse_mode_changed();
    }
    void on_comboBox_Select_active_port_currentIndexChanged() {
        body.configuration.active_ports_changed();
    }
    void on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged() {
        body.configuration.cursor_roll_changed();
    }
    void on_lineEdit_MouseParking_x_editingFinished() { body.configuration.parking_x_edited(); }
    void on_lineEdit_MouseParking_y_editingFinished() { body.configuration.parking_y_edited(); }
    void on_pushButton_Apply_mouse_parking_clicked() { body.configuration.apply_mouse_parking(); }
    void on_pushButton_Factory_Reset_clicked() { body.configuration.factory_reset(); }
    void on_pushButton_Soft_Reset_clicked() { body.configuration.soft_reset(); }
    void on_pushButton_ON_Beep_clicked() { body.configuration.beep_on(); }
    void on_pushButton_OFF_Beep_clicked() { body.configuration.beep_off(); }

    // Audio panel
    void on_checkBox_ALL_clicked() { body.audio->all_clicked(); }
    void on_checkBox_FOLLOW_clicked() { body.audio->follow_clicked(); }
    void on_checkBox_ch1_clicked() { body.audio->channel_clicked(); }
    void on_checkBox_ch2_clicked() { body.audio->channel_clicked(); }
    void on_checkBox_ch3_clicked() { body.audio->channel_clicked(); }
    void on_checkBox_ch4_clicked() { body.audio->channel_clicked(); }
    void on_pushButton_AudioSubmit_clicked() { body.audio->submit(); }
    /// Bound to nothing: the form has no widget of the name "pushButton".
    void on_pushButton_clicked() { body.writer.send_audio_query(); }

    // Mouse speed page
    void on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged() {
        body.mouse_speed.resolution_changed(1);
    }
    void on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged() {
        body.mouse_speed.resolution_changed(2);
    }
    void on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged() {
        body.mouse_speed.resolution_changed(3);
    }
    void on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged() {
        body.mouse_speed.resolution_changed(4);
    }
    void on_comboBox_number_of_setting_currentIndexChanged(int index) {
        body.mouse_speed.number_of_setting_changed(index);
    }
    void on_pushButton_Submit_Custom_Mouse_Movement_Settings_2_clicked() {
        body.mouse_speed.submit_custom_setting();
    }

    // Layout page
    void on_pushButtonSubmit_clicked() { body.layout.submit(); }
    void on_tableWidget_cellChanged(int row, int column) { body.layout.cell_changed(row, column); }
    void on_tableWidget_cellPressed(int row, int column) { body.layout.cell_pressed(row, column); }

private:
    std::unique_ptr<Ui::Corvane_PRO_UI> ui;
    Select_connection_method_Dialog connection_method_dialog;
    Main_Window_Controller body;
    Network_Link network;
    Connection_Wizard wizard;
};
