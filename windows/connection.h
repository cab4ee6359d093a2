#pragma once

#include "link/command_writer.h"
#include "link/link_transport.h"
#include "link/session_state.h"
#include "pages/left_menu.h"
#include "pages/model_traits.h"
#include "pages/mouse_speed_page.h"
#include "pages/terminal_view.h"

#include <QMainWindow>

#include <functional>

/// The life of the switch's links as the left menu controls them: the port list, ON for the serial
/// line, OFF, and asking the switch for everything.
class Connection {
public:
    /// @param main_window its slot serialRecieve() gets every readyRead() of a port.
    Connection(QMainWindow& main_window, const Model_Traits& switch_model,
               Session_State& link_state, Link_Transport& link_devices,
               Command_Writer& command_writer, Left_Menu& left_menu, Terminal_View& terminal_view,
               Mouse_Speed_Page& mouse_speed_page);

    /// Fills the port list with what the machine has now. A machine without any port ends the
    /// process with exit status 1 after a box "No available port".
    void list_serial_ports();
    /// Replaces the current link by the chosen port. A port that can't be opened leaves no sign but
    /// the red indicator.
    void open_serial_port();
    void connect_ready_read();
    /// Close and delete the port, or the socket, if one stands. Its count falls first; a device
    /// whose closing throws stays, and no command reaches it any more.
    void close_serial_port();
    void close_network_socket();
    /// Closes the device of the chosen method.
    void close_current_link();

    void port_changed();
    void turn_on();
    void turn_off();

    /// Forgets what the switch has said and asks it for everything.
    void refresh_UI();

private:
    /// Closes one device, with the controls before it where the model has it so. What it throws
    /// ends here, told or not as the model has it.
    void close_device(const char* failure, const std::function<void()>& close);
    void disable_controls();

    QMainWindow& window;
    const Model_Traits& model;
    Session_State& state;
    Link_Transport& devices;
    Command_Writer& writer;
    Left_Menu& menu;
    Terminal_View& terminal;
    Mouse_Speed_Page& mouse_speed;
};
