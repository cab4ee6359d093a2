#include "windows/main_window_controller.h"

#include "link/pending_datagrams.h"

#include <optional>
#include <utility>

namespace {

std::optional<Audio_Panel> make_audio_panel(const std::optional<Audio_Widgets>& widgets,
                                            Command_Writer& writer) {
    if (!widgets) {
        return std::nullopt;
    }
    return Audio_Panel(*widgets, writer);
}

} // namespace

Main_Window_Controller::Main_Window_Controller(QMainWindow& window,
                                               const Model_Traits& switch_model,
                                               const Window_Widgets& widgets,
                                               std::function<bool()> is_network_chosen)
    : model(switch_model),
      devices(std::move(is_network_chosen)),
      writer(state, devices, model.has_audio),
      replies(state, writer, *this, window, model.network_notice_order),
      menu(widgets.left_menu, state),
      terminal(widgets.textEdit_Main_Terminal, window),
      mouse_speed(widgets.mouse_speed, state, writer, window),
      layout(widgets.layout, state, writer, model),
      configuration(widgets.configuration, state, writer, devices, layout, model, window),
      audio(make_audio_panel(widgets.audio, writer)),
      reports(state, configuration, mouse_speed, layout),
      connection(window, model, state, devices, writer, menu, terminal, mouse_speed),
      frame(window, widgets.frame, state, [this] { connection.refresh_UI(); }),
      settings(model, state, writer, configuration, mouse_speed, layout, audio ? &*audio : nullptr,
               window) {}

void Main_Window_Controller::serialRecieve() {
    replies.take_serial_chunk(devices.serial_port->readAll());
}

void Main_Window_Controller::set_current_layout_from_buff() {
    replies.set_current_layout_from_buff();
    if (model.disarms_drag_after_read_back) {
        layout.disable_grid_drag();
    }
}

void Main_Window_Controller::onReadyRead() {
    if (!devices.network_socket) {
        // Closed since the datagram came in.
        return;
    }
    // An adapter whose data port is closed raises the signal without a datagram.
    if (const std::optional<QByteArray> chunk = read_pending_datagrams(*devices.network_socket)) {
        replies.take_network_chunk(*chunk);
    }
}

void Main_Window_Controller::parse_both_notice(const std::string& text) {
    const std::optional<std::string> channel = reports.parse_both_notice(text);
    if (channel && audio) {
        audio->parse_audio_state(*channel);
    }
}

void Main_Window_Controller::apply_audio_reply(const std::string& text) {
    if (audio) {
        audio->apply_audio_reply(text);
    }
}

void Main_Window_Controller::switch_answered() {
    menu.enable_configuration_controls();
    menu.enable_setting_widgets();
    menu.set_connected_indicator();
}
