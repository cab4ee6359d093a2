#include "pages/left_menu.h"

namespace {

template <class Widget>
void set_enabled(const std::vector<Widget*>& widgets, bool enabled) {
    for (Widget* widget : widgets) {
        widget->setEnabled(enabled);
    }
}

} // namespace

Left_Menu::Left_Menu(const Left_Menu_Widgets& menu_widgets, Session_State& link_state)
    : widgets(menu_widgets), state(link_state) {}

void Left_Menu::enable_configuration_controls() {
    set_enabled(widgets.configuration_controls, true);
}

void Left_Menu::disable_configuration_controls() {
    set_enabled(widgets.configuration_controls, false);
}

void Left_Menu::enable_setting_widgets() { set_enabled(widgets.setting_widgets, true); }

void Left_Menu::disable_setting_widgets() { set_enabled(widgets.setting_widgets, false); }

void Left_Menu::set_connected_indicator() { show_connection(true); }

void Left_Menu::set_disconnected_indicator() {
    state.km_connected = false;
    show_connection(false);
}

void Left_Menu::show_connection(bool connected) {
    widgets.pushButton_Connection_Indicator.setStyleSheet(
        connected ? "background-color: green; border-radius: 10px; height: 20px; width: 20px;"
                  : "background-color: red; border-radius: 10px; height: 20px; width: 20px;");
    widgets.pushButton_ON_Connection.setEnabled(!connected);
    widgets.pushButton_OFF_Connection.setEnabled(connected);
}
