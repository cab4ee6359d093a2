// SPDX-License-Identifier: MIT

#pragma once

#include "usr/select_connection_method_dialog.h"

#include <QString>

#include <memory>
#include <optional>

class IP_Settings_Dialog;
class Left_Menu;
class Mouse_Speed_Page;
class Select_hardware_Dialog;
class Switch_Session;

/// The dialogs with which Plus and Pro open a link: the method; then, for the network, the adapter,
/// the login and the IP settings. Closing a dialog by its title bar ends the wizard and leaves the
/// current link unchanged. The Escape key continues with the next step and what there is.
class Connection_Wizard {
public:
    Connection_Wizard(Switch_Session& switch_session, Left_Menu& left_menu,
                      Mouse_Speed_Page& mouse_speed_page);
    ~Connection_Wizard();

    void run();
    /// Like run(), inside a window's constructor. If a switch has answered while a message box was
    /// open, it is asked for everything again.
    void run_at_start();

    /// Changes the adapter's name, user name and password; the next login uses the new ones.
    void change_admin_settings();

private:
    struct Login {
        QString username;
        QString password;
        QString ip_allocation;
    };

    void connect_serial_port();
    /// @return whether the wizard opened a link.
    bool connect_adapter();
    /// Asks until a login is not refused; nothing if the dialog was closed by its title bar.
    static std::optional<Login> log_in(const Select_hardware_Dialog& hardware);

    Select_connection_method_Dialog method_dialog;
    Switch_Session& session;
    Left_Menu& menu;
    Mouse_Speed_Page& mouse_speed;
    /// What the last run read from the adapter; null before the first run that read it.
    std::unique_ptr<IP_Settings_Dialog> ip_settings_dialog;
};
