#include "windows/halvern_velmoran_lite.h"

#include "app/event_log.h"
#include "ui_corvane_lite_ui.h"
#include "windows/form.h"

Halvern_Velmoran_LITE::Halvern_Velmoran_LITE(QWidget* parent)
    : QMainWindow(parent),
      ui(build_form<Ui::Corvane_LITE_UI>(*this)),
      body(*this, lite_model, window_widgets(*ui), [] { return false; }) {
    body.frame.set_window_looks();
    body.frame.set_refresh_icon();
    body.frame.show_configuration_page();
    body.menu.set_disconnected_indicator();
    body.layout.set_up_table();
    body.layout.set_default_layout();
    body.menu.disable_configuration_controls();
    body.menu.disable_setting_widgets();
    body.frame.set_refresh_icon();
    body.state.write_enabled = true;
    body.state.ui_changes_enabled = false;

    // The first name makes the list choose it, whose slot opens that port and asks the switch.
    // Opening it again replaces that port, and its second connection makes every chunk's slot run
    // twice, the second time with nothing to read.
    body.connection.list_serial_ports();
    body.connection.open_serial_port();
    body.connection.connect_ready_read();
    body.writer.send_start_commands();
}

Halvern_Velmoran_LITE::~Halvern_Velmoran_LITE() {
    body.devices.close_chosen_device();
    close_log();
}
