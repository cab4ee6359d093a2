#pragma once

#include "link/session_state.h"
#include "pages/page_widgets.h"

/// The connection state as the left menu shows it, and the two fixed lists of controls that follow
/// it. The indicator shows that a switch has answered, not that a port is open.
class Left_Menu {
public:
    Left_Menu(const Left_Menu_Widgets& menu_widgets, Session_State& link_state);

    void enable_configuration_controls();
    void disable_configuration_controls();
    void enable_setting_widgets();
    void disable_setting_widgets();

    void set_connected_indicator();
    /// Also takes down km_connected.
    void set_disconnected_indicator();

    [[nodiscard]] QComboBox& port_list() const { return widgets.comboBox_SelectPort; }
    /// True while a switch has answered: only then is ON disabled.
    [[nodiscard]] bool shows_connected() const {
        return !widgets.pushButton_ON_Connection.isEnabled();
    }

private:
    void show_connection(bool connected);

    Left_Menu_Widgets widgets;
    Session_State& state;
};
