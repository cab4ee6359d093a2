// SPDX-License-Identifier: MIT

#include "windows/connection_wizard.h"

#include "link/switch_session.h"
#include "pages/left_menu.h"
#include "pages/mouse_speed_page.h"
#include "usr/change_setting_for_usr_dialog.h"
#include "usr/credentials_dialog.h"
#include "usr/ip_allocation.h"
#include "usr/ip_settings_dialog.h"
#include "usr/select_hardware_dialog.h"

Connection_Wizard::Connection_Wizard(Switch_Session& switch_session, Left_Menu& left_menu,
                                     Mouse_Speed_Page& mouse_speed_page)
    : session(switch_session), menu(left_menu), mouse_speed(mouse_speed_page) {
    menu.set_adapter_name([this] {
        // ON can be pressed before any run of the wizard has reached an adapter.
        return ip_settings_dialog ? ip_settings_dialog->get_usr_name() : QString();
    });
}

Connection_Wizard::~Connection_Wizard() = default;

void Connection_Wizard::run() {
    method_dialog.exec();
    if (method_dialog.is_closed_by_user()) {
        return;
    }
    const bool network = method_dialog.is_tcp_ip_selected();
    session.choose(network ? Link_Method::network : Link_Method::serial);
    if (method_dialog.is_rs232_selected()) {
        connect_serial_port();
    } else if (network && !connect_adapter()) {
        return;
    }
    session.writer.send_start_commands();
}

void Connection_Wizard::run_at_start() {
    run();
    if (menu.shows_connected()) {
        session.writer.send_start_commands();
    }
}

void Connection_Wizard::connect_serial_port() {
    menu.list_serial_ports();
    mouse_speed.remove_custom_setting_items();
    menu.show_serial_controls();
    session.set_disconnected_indicator();
    // The second connection makes every chunk's slot run twice, the second time with nothing to
    // read.
    session.open_serial_port(menu.port_name());
    session.connect_ready_read();
}

bool Connection_Wizard::connect_adapter() {
    Select_hardware_Dialog hardware;
    hardware.exec();
    if (hardware.is_closed_by_user()) {
        return false;
    }
    const std::optional<Login> login = log_in(hardware);
    if (!login) {
        return false;
    }
    ip_settings_dialog.reset();
    ip_settings_dialog = std::make_unique<IP_Settings_Dialog>(
        hardware.get_selected_ip(), login->username, login->password, login->ip_allocation);
    ip_settings_dialog->exec();
    if (ip_settings_dialog->is_closed_by_user()) {
        return false;
    }
    session.set_disconnected_indicator();
    mouse_speed.remove_custom_setting_items();
    menu.show_network_controls();
    session.connect_to_USR(ip_settings_dialog->get_current_ip());
    return true;
}

std::optional<Connection_Wizard::Login>
Connection_Wizard::log_in(const Select_hardware_Dialog& hardware) {
    while (true) {
        Credentials_Dialog credentials(hardware.get_selected_ip(), hardware.get_USR_replies());
        credentials.exec();
        if (credentials.is_closed_by_user()) {
            return std::nullopt;
        }
        if (ip_allocation_of(credentials.get_ip_allocation()) != IP_Allocation::refused) {
            return Login{credentials.get_username(), credentials.get_password(),
                         credentials.get_ip_allocation()};
        }
    }
}

void Connection_Wizard::change_admin_settings() {
    IP_Settings_Dialog* adapter = ip_settings_dialog.get();
    if (adapter == nullptr) {
        return;
    }
    Change_setting_for_USR_Dialog dialog(session.get_current_USR_ip(), adapter->get_static_ip(),
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
    menu.show_adapter_name();
}
