#include "windows/connection_wizard.h"

#include "usr/change_setting_for_usr_dialog.h"
#include "usr/credentials_dialog.h"

Connection_Wizard::Connection_Wizard(Select_connection_method_Dialog& connection_method_dialog,
                                     Network_Link& network_link, Connection& serial_connection,
                                     Left_Menu& left_menu, Mouse_Speed_Page& mouse_speed_page,
                                     Command_Writer& command_writer)
    : method_dialog(connection_method_dialog),
      network(network_link),
      connection(serial_connection),
      menu(left_menu),
      mouse_speed(mouse_speed_page),
      writer(command_writer) {}

void Connection_Wizard::run() {
    method_dialog.exec();
    if (method_dialog.is_closed_by_user()) {
        return;
    }
    if (method_dialog.is_rs232_selected()) {
        take_serial_road();
    } else if (method_dialog.is_tcp_ip_selected() && !take_network_road()) {
        return;
    }
    writer.send_start_commands();
}

void Connection_Wizard::take_serial_road() {
    connection.list_serial_ports();
    mouse_speed.remove_custom_setting_items();
    network.show_serial_controls();
    menu.set_disconnected_indicator();
    // The second connection makes every chunk's slot run twice, the second time with nothing to
    // read.
    connection.open_serial_port();
    connection.connect_ready_read();
}

bool Connection_Wizard::take_network_road() {
    Select_hardware_Dialog hardware;
    hardware.exec();
    if (hardware.is_closed_by_user()) {
        return false;
    }
    const std::optional<Login> login = log_in(hardware);
    if (!login) {
        return false;
    }
    network.ip_settings_dialog.reset();
    network.ip_settings_dialog = std::make_unique<IP_Settings_Dialog>(
        hardware.get_selected_ip(), login->username, login->password, login->ip_allocation);
    network.ip_settings_dialog->exec();
    if (network.ip_settings_dialog->is_closed_by_user()) {
        return false;
    }
    menu.set_disconnected_indicator();
    network.current_USR_ip = network.ip_settings_dialog->get_current_ip();
    mouse_speed.remove_custom_setting_items();
    network.show_network_controls();
    network.connect_to_USR();
    return true;
}

std::optional<Connection_Wizard::Login>
Connection_Wizard::log_in(const Select_hardware_Dialog& hardware) {
    const QString refused = "-1";
    while (true) {
        Credentials_Dialog credentials(hardware.get_selected_ip(), hardware.get_USR_replies());
        credentials.exec();
        if (credentials.is_closed_by_user()) {
            return std::nullopt;
        }
        if (credentials.get_ip_allocation() != refused) {
            return Login{credentials.get_username(), credentials.get_password(),
                         credentials.get_ip_allocation()};
        }
    }
}

void Connection_Wizard::change_admin_settings() {
    IP_Settings_Dialog* adapter = network.ip_settings_dialog.get();
    if (adapter == nullptr) {
        return;
    }
    Change_setting_for_USR_Dialog dialog(network.current_USR_ip, adapter->get_static_ip(),
                                         adapter->get_subnet_mask(), adapter->get_gateway(),
                                         adapter->get_ip_allocation(), adapter->get_username(),
                                         adapter->get_password(), adapter->get_usr_name());
    dialog.exec();
    if (!dialog.is_settings_applied()) {
        return;
    }
    adapter->set_username(dialog.get_username());
    adapter->set_password(dialog.get_password());
    adapter->set_usr_name(dialog.get_usr_name());
    network.show_adapter_name();
}
