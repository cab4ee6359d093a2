#include "windows/halvern_velmoran_plus.h"

#include "app/event_log.h"
#include "ui_corvane_ui.h"
#include "windows/form.h"

Halvern_Velmoran_PLUS::Halvern_Velmoran_PLUS(QWidget* parent)
    : QMainWindow(parent),
      ui(build_form<Ui::Corvane_UI>(*this)),
      body(*this, plus_model, window_widgets(*ui),
           [this] { return connection_method_dialog.is_tcp_ip_selected(); }),
      network(*this, network_widgets(*ui), body.devices, body.menu, body.terminal, body.connection),
      wizard(connection_method_dialog, network, body.connection, body.menu, body.mouse_speed,
             body.writer) {
    body.frame.set_window_looks();
    body.frame.set_refresh_icon();
    body.frame.show_configuration_page();
    body.menu.disable_configuration_controls();
    body.menu.disable_setting_widgets();
    body.menu.set_disconnected_indicator();
    body.layout.set_up_table();
    body.layout.set_default_layout();
    body.state.write_enabled = true;
    body.state.ui_changes_enabled = false;

    wizard.run();
    if (body.menu.shows_connected()) {
        body.writer.send_start_commands();
    }
}

Halvern_Velmoran_PLUS::~Halvern_Velmoran_PLUS() {
    body.devices.close_chosen_device();
    close_log();
}
