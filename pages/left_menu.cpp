// SPDX-License-Identifier: MIT

#include "pages/left_menu.h"

#include "app/process_end.h"
#include "link/switch_session.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace {

template <class Widget>
void set_enabled(const std::vector<Widget*>& widgets, bool enabled) {
    for (Widget* widget : widgets) {
        widget->setEnabled(enabled);
    }
}

} // namespace

Left_Menu::Left_Menu(const Left_Menu_Widgets& menu_widgets, Switch_Session& switch_session)
    : widgets(menu_widgets), session(switch_session) {}

void Left_Menu::list_serial_ports() {
    const QStringList ports = Switch_Session::available_ports();
    if (ports.isEmpty()) {
        end_process_after_warning(*widgets.comboBox_SelectPort.window(), "No available port");
    }
    widgets.comboBox_SelectPort.clear();
    for (const QString& port : ports) {
        widgets.comboBox_SelectPort.addItem(port);
    }
}

QString Left_Menu::port_name() const { return widgets.comboBox_SelectPort.currentText(); }

void Left_Menu::port_changed() { session.port_changed(port_name()); }

void Left_Menu::turn_on() { session.turn_on(port_name()); }

void Left_Menu::enable_configuration_controls() {
    set_enabled(widgets.configuration_controls, true);
}

void Left_Menu::disable_configuration_controls() {
    set_enabled(widgets.configuration_controls, false);
}

void Left_Menu::enable_setting_widgets() { set_enabled(widgets.setting_widgets, true); }

void Left_Menu::disable_setting_widgets() { set_enabled(widgets.setting_widgets, false); }

bool Left_Menu::shows_connected() const { return !widgets.pushButton_ON_Connection.isEnabled(); }

void Left_Menu::show_adapter(const QString& address) {
    widgets.network->label_current_Ip.setText("  IP: " + address);
    show_adapter_name();
}

void Left_Menu::show_adapter_name() {
    widgets.network->label_name_of_USR.setText("  Name: " + adapter_name());
}

void Left_Menu::show_connection(bool connected) {
    widgets.pushButton_Connection_Indicator.setStyleSheet(
        connected ? "background-color: green; border-radius: 10px; height: 20px; width: 20px;"
                  : "background-color: red; border-radius: 10px; height: 20px; width: 20px;");
    // For screen readers, which see no colour.
    widgets.pushButton_Connection_Indicator.setAccessibleName(connected ? "connected"
                                                                        : "not connected");
    widgets.pushButton_ON_Connection.setEnabled(!connected);
    widgets.pushButton_OFF_Connection.setEnabled(connected);
}

void Left_Menu::show_network_controls(bool shown) {
    widgets.comboBox_SelectPort.setVisible(!shown);
    widgets.network->label_Select_port.setVisible(!shown);
    widgets.network->label_current_Ip.setVisible(shown);
    widgets.network->label_name_of_USR.setVisible(shown);
    widgets.network->pushButton_Admin_Settings.setVisible(shown);
}
