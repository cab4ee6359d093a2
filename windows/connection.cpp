#include "windows/connection.h"

#include "app/message_box.h"

#include <QMessageBox>
#include <QSerialPortInfo>

#include <cstdlib>

Connection::Connection(QMainWindow& main_window, const Model_Traits& switch_model,
                       Session_State& link_state, Link_Transport& link_devices,
                       Command_Writer& command_writer, Left_Menu& left_menu,
                       Terminal_View& terminal_view, Mouse_Speed_Page& mouse_speed_page)
    : window(main_window),
      model(switch_model),
      state(link_state),
      devices(link_devices),
      writer(command_writer),
      menu(left_menu),
      terminal(terminal_view),
      mouse_speed(mouse_speed_page) {}

void Connection::list_serial_ports() {
    const QList<QSerialPortInfo> serial_ports = QSerialPortInfo::availablePorts();
    if (serial_ports.isEmpty()) {
        QMessageBox::warning(&window, " ", "No available port", QMessageBox::Ok);
        std::exit(1);
    }
    menu.port_list().clear();
    for (const QSerialPortInfo& port : serial_ports) {
        menu.port_list().addItem(port.portName());
    }
}

void Connection::open_serial_port() {
    try {
        if (model.clears_terminal_on_port_open) {
            terminal.clear();
        }
        if (devices.port_open_count > 0) {
            devices.close_port();
        }
        close_network_socket();
        devices.open_port(menu.port_list().currentText());
        connect_ready_read();
    } catch (...) {
        report_failure("Connection to serial port error");
    }
}

void Connection::connect_ready_read() {
    QObject::connect(devices.serial_port.get(), SIGNAL(readyRead()), &window,
                     SLOT(serialRecieve()));
}

void Connection::close_serial_port() {
    if (devices.serial_port) {
        close_device("Close serial error", [this] {
            devices.port_open_count = 0;
            devices.close_port();
        });
    }
}

void Connection::close_network_socket() {
    if (devices.network_socket) {
        close_device("Close socket error", [this] {
            devices.socket_open_count = 0;
            devices.close_socket();
        });
    }
}

void Connection::close_current_link() {
    if (devices.is_network_chosen()) {
        close_network_socket();
    } else {
        close_serial_port();
    }
}

void Connection::port_changed() {
    state.ui_changes_enabled = false;
    disable_controls();
    menu.set_disconnected_indicator();
    state.received_buff.clear();
    mouse_speed.remove_custom_setting_items();
    open_serial_port();
    writer.send_start_commands();
    state.ui_changes_enabled = true;
}

void Connection::turn_on() {
    open_serial_port();
    refresh_UI();
}

void Connection::turn_off() {
    close_current_link();
    if (!state.km_connected) {
        return;
    }
    menu.set_disconnected_indicator();
    if (!model.controls_fall_with_device) {
        disable_controls();
    }
}

void Connection::refresh_UI() {
    state.ui_changes_enabled = false;
    state.received_buff.clear();
    mouse_speed.remove_custom_setting_items();
    state.km_connected = false;
    writer.send_start_commands();
    state.ui_changes_enabled = true;
}

void Connection::close_device(const char* failure, const std::function<void()>& close) {
    try {
        if (model.controls_fall_with_device) {
            disable_controls();
        }
        close();
    } catch (...) {
        if (model.reports_failed_closing) {
            report_failure(failure);
        }
    }
}

void Connection::disable_controls() {
    menu.disable_configuration_controls();
    menu.disable_setting_widgets();
}
