// SPDX-License-Identifier: MIT

#include "windows/main_window_controller.h"

#include "app/event_log.h"
#include "app/message_box.h"
#include "app/process_end.h"
#include "pages/model_traits.h"

#include <QMainWindow>

namespace {

std::optional<Audio_Panel> make_audio_panel(const Model_Traits& model,
                                            const Window_Widgets& widgets,
                                            Switch_Session& session) {
    if (!model.session.has_audio) {
        return std::nullopt;
    }
    return Audio_Panel(widgets.audio.value(), session);
}

} // namespace

Main_Window_Controller::Main_Window_Controller(QMainWindow& main_window,
                                               const Model_Traits& model_traits,
                                               const Window_Widgets& widgets)
    : window(main_window),
      model(model_traits),
      session(*this, window, model.session),
      menu(widgets.left_menu, session),
      terminal(widgets.textEdit_Main_Terminal, window),
      mouse_speed(widgets.mouse_speed, session),
      layout(widgets.layout, session, model),
      configuration(widgets.configuration, session, layout, model),
      audio(make_audio_panel(model, widgets, session)),
      reports(session, {configuration, mouse_speed, layout, audio ? &*audio : nullptr}),
      chrome(window, widgets.chrome, session),
      settings({configuration, mouse_speed, layout, audio ? &*audio : nullptr}, session, model,
               window) {}

void Main_Window_Controller::set_up_window() {
    chrome.set_window_looks();
    chrome.set_refresh_icon();
    chrome.show_configuration_page();
    disable_controls();
    session.set_disconnected_indicator();
    layout.set_up_table();
    layout.set_default_layout();
    session.state.write_enabled = true;
    session.state.ui_changes_enabled = false;
}

void Main_Window_Controller::connect_first_port() {
    // The list selects the first name that is added; its slot opens that port and asks the switch.
    // Opening it again replaces that port, and its second connection makes every chunk's slot run
    // twice, the second time with nothing to read.
    menu.list_serial_ports();
    session.open_serial_port(menu.port_name());
    session.connect_ready_read();
    session.writer.send_start_commands();
}

void Main_Window_Controller::close() {
    session.close_device();
    close_log();
}

void Main_Window_Controller::set_current_layout_from_buff() {
    session.replies.set_current_layout_from_buff();
    if (model.disarms_drag_after_read_back) {
        layout.disable_grid_drag();
    }
}

void Main_Window_Controller::switch_answered() {
    menu.enable_configuration_controls();
    menu.enable_setting_widgets();
    menu.set_connected_indicator();
}

void Main_Window_Controller::report_failure(const std::string& text) { ::report_failure(text); }

void Main_Window_Controller::disable_controls() {
    menu.disable_configuration_controls();
    menu.disable_setting_widgets();
}

void Main_Window_Controller::end_process(const QString& reason) {
    end_process_after_warning(window, reason);
}
