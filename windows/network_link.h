#pragma once

#include "usr/ip_settings_dialog.h"
#include "windows/connection.h"

#include <memory>

/// The network link of Plus and Pro: UDP datagrams to and from the adapter's data port, which hands
/// them to the switch. The link has no handshake; only a reply with the connected marker proves it.
class Network_Link {
public:
    /// The adapter's data port.
    static constexpr quint16 data_port = 23;
    static constexpr int connect_wait_ms = 3000;
    /// A switch that has not answered this long after ON is taken for unreachable.
    static constexpr int first_answer_wait_ms = 7000;

    /// @param main_window its slots onReadyRead() and is_not_Connected_Message() are called by the
    ///        socket and by a timer.
    Network_Link(QMainWindow& main_window, const Network_Widgets& network_widgets,
                 Link_Transport& link_devices, Left_Menu& left_menu, Terminal_View& terminal_view,
                 Connection& serial_connection);

    /// Replaces whatever link stands by a socket to the adapter in use. A connection that fails
    /// ends the process with exit status 1, after a box "No connection".
    void connect_to_USR();

    /// ON: opens the link of the chosen method and asks the switch for everything.
    void turn_on();
    /// The time for a first answer is over. Without one a box tells so, and the process ends with
    /// exit status 1. OFF does not take this back.
    void is_not_Connected_Message();

    // The left menu as each link needs it.
    void show_serial_controls();
    void show_network_controls();
    void show_adapter_name();

    /// Dotted address of the adapter in use.
    QString current_USR_ip;
    /// What the wizard's last run read from the adapter; null before the first one got that far.
    std::unique_ptr<IP_Settings_Dialog> ip_settings_dialog;

private:
    void replace_socket();
    void show_controls(bool of_network);

    QMainWindow& window;
    Network_Widgets widgets;
    Link_Transport& devices;
    Left_Menu& menu;
    Terminal_View& terminal;
    Connection& connection;
};
