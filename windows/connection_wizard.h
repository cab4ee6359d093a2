#pragma once

#include "usr/select_connection_method_dialog.h"
#include "usr/select_hardware_dialog.h"
#include "windows/network_link.h"

#include <QString>

#include <optional>

/// The chain of dialogs that leads Plus and Pro to a link: the method; for the network then the
/// adapter, the login and its IP settings. A dialog closed by its frame ends the chain and leaves
/// the link in force as it was; the Escape key goes on to the next step with what there is.
class Connection_Wizard {
public:
    Connection_Wizard(Select_connection_method_Dialog& connection_method_dialog,
                      Network_Link& network_link, Connection& serial_connection,
                      Left_Menu& left_menu, Mouse_Speed_Page& mouse_speed_page,
                      Command_Writer& command_writer);

    void run();

    /// Changes the adapter's name, user name and password; the next login uses the new ones.
    void change_admin_settings();

private:
    struct Login {
        QString username;
        QString password;
        QString ip_allocation;
    };

    void take_serial_road();
    /// @return whether the road led to a link.
    bool take_network_road();
    /// Asks until a login is not refused; nothing if the dialog was closed by its frame.
    static std::optional<Login> log_in(const Select_hardware_Dialog& hardware);

    Select_connection_method_Dialog& method_dialog;
    Network_Link& network;
    Connection& connection;
    Left_Menu& menu;
    Mouse_Speed_Page& mouse_speed;
    Command_Writer& writer;
};
