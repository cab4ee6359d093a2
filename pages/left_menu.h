// SPDX-License-Identifier: MIT

#pragma once

#include "pages/page_widgets.h"

#include <QString>

#include <functional>
#include <utility>

class Switch_Session;

/// The left menu's connection controls: the port list, ON and OFF, the indicator, the labels of
/// the current link, and the two fixed lists of controls that follow the connection. The indicator
/// shows that a switch has answered, not that a port is open.
class Left_Menu {
public:
    Left_Menu(const Left_Menu_Widgets& menu_widgets, Switch_Session& switch_session);

    /// Fills the port list with the current ports of the machine. If there is none, the process
    /// ends with exit status 1 after the message box "No available port".
    void list_serial_ports();
    /// The name that the port list shows.
    [[nodiscard]] QString port_name() const;

    // The user's actions.
    void port_changed();
    void turn_on();

    void enable_configuration_controls();
    void disable_configuration_controls();
    void enable_setting_widgets();
    void disable_setting_widgets();

    void set_connected_indicator() { show_connection(true); }
    void set_disconnected_indicator() { show_connection(false); }
    /// True while a switch has answered: only then is ON disabled.
    [[nodiscard]] bool shows_connected() const;

    // Which link is in use; only on a model with a network link.
    void show_serial_controls() { show_network_controls(false); }
    void show_network_controls() { show_network_controls(true); }
    /// @param name called each time that a name is shown; the name can change at any time.
    void set_adapter_name(std::function<QString()> name) { adapter_name = std::move(name); }
    void show_adapter(const QString& address);
    void show_adapter_name();

private:
    void show_connection(bool connected);
    void show_network_controls(bool shown);

    Left_Menu_Widgets widgets;
    Switch_Session& session;
    std::function<QString()> adapter_name;
};
