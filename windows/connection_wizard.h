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

/// The chain of dialogs that leads Plus and Pro to a link: the method; for the network then the
/// adapter, the login and its IP settings. A dialog closed by its frame ends the chain and leaves
/// the link in force as it was; the Escape key goes on to the next step with what there is.
class Connection_Wizard {
public:
    Connection_Wizard(Switch_Session& switch_session, Left_Menu& left_menu,
                      Mouse_Speed_Page& mouse_speed_page);
    ~Connection_Wizard();

    void run();
    /// As run(), inside a window's constructor. A switch that has answered while a box was open is
    /// asked for everything once more.
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
    /// @return whether the chain led to a link.
    bool connect_adapter();
    /// Asks until a login is not refused; nothing if the dialog was closed by its frame.
    static std::optional<Login> log_in(const Select_hardware_Dialog& hardware);

    Select_connection_method_Dialog method_dialog;
    Switch_Session& session;
    Left_Menu& menu;
    Mouse_Speed_Page& mouse_speed;
    /// What the last run read from the adapter; null before the first one got that far.
    std::unique_ptr<IP_Settings_Dialog> ip_settings_dialog;
};
