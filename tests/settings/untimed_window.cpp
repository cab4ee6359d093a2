#include "tests/settings/untimed_window.h"

#include "sim/port_list.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"
#include "ui_corvane_lite_ui.h"
#include "windows/form.h"

Untimed_Window::Untimed_Window()
    : ui(build_form<Ui::Corvane_LITE_UI>(*this)),
      body(*this, lite_model, window_widgets(*ui), [] { return false; }) {
    list_ports({device.device_name()});
    body.layout.set_up_table();
    body.layout.set_default_layout();
    body.state.write_enabled = true;
    body.connection.list_serial_ports();
    body.connection.open_serial_port();
}

Untimed_Window::~Untimed_Window() { body.devices.close_chosen_device(); }

bool Untimed_Window::read_unit() {
    body.connection.refresh_UI();
    // The layout is the last line of the answers.
    const bool complete = wait_until([this] {
        const qsizetype layout = body.state.received_buff.indexOf("//FF");
        return layout >= 0 && body.state.received_buff.indexOf('\n', layout) >= 0;
    });
    body.replies.get_data_from_TQL_by_serial_port();
    return complete;
}

bool Untimed_Window::wait_until_obeyed() {
    const std::string marker = "//marker";
    device.clear_record();
    body.terminal.clear();
    body.writer.writeCommand(std::string(marker));
    // A notice may have emptied the reply buffer; the terminal shows every answer. A layout that
    // was confirmed on the way is asked for and answered behind the marker.
    return wait_until([&] {
        return device.received_commands().contains(QByteArray::fromStdString(marker)) &&
               device.all_sent() &&
               ui->textEdit_Main_Terminal->toPlainText().contains("Not understood.\n");
    });
}

QWidget& Untimed_Window::widget(const QString& name) const {
    return find_child<QWidget>(*this, name);
}

void Untimed_Window::serialRecieve() { body.serialRecieve(); }

void Untimed_Window::on_comboBox_KM_Control_currentIndexChanged() {
    body.configuration.km_control_changed();
}
void Untimed_Window::on_comboBox_USB_Control_currentIndexChanged() {
    body.configuration.usb_control_changed();
}
void Untimed_Window::on_comboBox_Select_Display_Mode_currentIndexChanged() {
    body.configuration.mouse_mode_changed();
}
void Untimed_Window::on_comboBox_Select_active_port_currentIndexChanged() {
    body.configuration.active_ports_changed();
}
void Untimed_Window::on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged() {
    body.configuration.cursor_roll_changed();
}
void Untimed_Window::on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged() {
    body.mouse_speed.resolution_changed(1);
}
void Untimed_Window::on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged() {
    body.mouse_speed.resolution_changed(2);
}
void Untimed_Window::on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged() {
    body.mouse_speed.resolution_changed(3);
}
void Untimed_Window::on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged() {
    body.mouse_speed.resolution_changed(4);
}
