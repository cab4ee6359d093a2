#include "tests/fuzz/fuzz_window.h"

#include "tests/fuzz/fake_boxes.h"
#include "tests/fuzz/fake_timers.h"
#include "tests/fuzz/recording_device.h"
#include "tests/fuzz/stated_ends.h"
#include "ui_corvane_lite_ui.h"
#include "ui_corvane_pro_ui.h"
#include "ui_corvane_ui.h"
#include "windows/form.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

/// How many inputs go between two comparisons with a new window.
constexpr int starts_between_checks = 500;

} // namespace

Fuzz_Window::Fuzz_Window(const Model_Traits& switch_model) : the_model(switch_model) {
    expect(fake_timers::are_in_place(), "Qt's own timers would fire in real time");
    if (the_model.has_audio) {
        build<Ui::Corvane_PRO_UI>();
    } else if (the_model.has_network) {
        build<Ui::Corvane_UI>();
    } else {
        build<Ui::Corvane_LITE_UI>();
    }
    make_body();
    body().frame.set_window_looks();
    body().frame.set_refresh_icon();
    body().frame.show_configuration_page();
    body().menu.disable_configuration_controls();
    body().menu.disable_setting_widgets();
    body().menu.set_disconnected_indicator();
    body().layout.set_up_table();
    // Style sheets take effect now, and not at some later input.
    for (QWidget* widget : findChildren<QWidget*>()) {
        widget->ensurePolished();
    }
    memory.emplace(*this);
    body().layout.set_default_layout();
    first_description = description_of(*this);
}

template <class Form>
void Fuzz_Window::build() {
    const std::shared_ptr<Form> made = build_form<Form>(*this);
    widgets.emplace(window_widgets(*made));
    form = made;
}

void Fuzz_Window::make_body() {
    the_body.emplace(*this, the_model, *widgets, [this] { return road == Road::network; });
}

void Fuzz_Window::start_anew(Road wanted_road) {
    fake_timers::forget();
    fake_boxes::forget();
    fake_boxes::while_shown({});
    all_sent.clear();
    road = wanted_road;
    make_body();
    memory->restore();
    body().layout.set_default_layout();
    check_reset();
    QCoreApplication::sendPostedEvents();
    open_link();
    body().state.write_enabled = true;
    body().state.ui_changes_enabled = false;
    body().writer.send_start_commands();
}

void Fuzz_Window::open_link() {
    if (road == Road::network) {
        body().devices.network_socket = std::make_unique<Recording_Socket>(all_sent);
        body().devices.socket_open_count = 1;
    } else {
        body().devices.serial_port = std::make_unique<Recording_Port>(all_sent);
        body().devices.port_open_count = 1;
    }
}

void Fuzz_Window::check_reset() {
    if (starts++ % starts_between_checks > 1) {
        return;
    }
    const QByteArrayList now = description_of(*this);
    for (qsizetype i = 0; i < std::max(now.size(), first_description.size()); ++i) {
        if (now.value(i) != first_description.value(i)) {
            qFatal("the window kept something of an earlier input:\n%s\ninstead of\n%s",
                   now.value(i).constData(), first_description.value(i).constData());
        }
    }
}

void Fuzz_Window::receive(const QByteArray& chunk) {
    static_cast<Recording_Port&>(*body().devices.serial_port).receive(chunk);
    body().serialRecieve();
}

void Fuzz_Window::receive_datagram(const QByteArray& chunk) {
    body().replies.take_network_chunk(chunk);
}

void Fuzz_Window::get_data_from_TQL_by_serial_port() {
    body().replies.get_data_from_TQL_by_serial_port();
}
void Fuzz_Window::set_current_layout_from_buff() { body().set_current_layout_from_buff(); }
void Fuzz_Window::scroll_Cursor_to_the_end() { body().terminal.scroll_Cursor_to_the_end(); }
void Fuzz_Window::load_second_part_of_settings() { body().settings.load_second_part_of_settings(); }
void Fuzz_Window::refresh_UI() { body().connection.refresh_UI(); }
void Fuzz_Window::enable_refresh_button() { body().frame.enable_refresh_button(); }
void Fuzz_Window::disable_refresh_button() { body().frame.disable_refresh_button(); }

void Fuzz_Window::on_comboBox_KM_Control_currentIndexChanged() {
    body().configuration.km_control_changed();
}
void Fuzz_Window::on_comboBox_USB_Control_currentIndexChanged() {
    body().configuration.usb_control_changed();
}
void Fuzz_Window::on_comboBox_Select_Display_Mode_currentIndexChanged() {
    body().configuration.mouse_mode_changed();
}
void Fuzz_Window::on_comboBox_Select_active_port_currentIndexChanged() {
    body().configuration.active_ports_changed();
}
void Fuzz_Window::on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged() {
    body().configuration.cursor_roll_changed();
}
void Fuzz_Window::on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged() {
    body().mouse_speed.resolution_changed(1);
}
void Fuzz_Window::on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged() {
    body().mouse_speed.resolution_changed(2);
}
void Fuzz_Window::on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged() {
    body().mouse_speed.resolution_changed(3);
}
void Fuzz_Window::on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged() {
    body().mouse_speed.resolution_changed(4);
}
void Fuzz_Window::on_comboBox_number_of_setting_currentIndexChanged(int index) {
    body().mouse_speed.number_of_setting_changed(index);
}
void Fuzz_Window::on_tableWidget_cellChanged(int row, int column) {
    body().layout.cell_changed(row, column);
}
void Fuzz_Window::on_tableWidget_cellPressed(int row, int column) {
    body().layout.cell_pressed(row, column);
}

Fuzz_Window& window_of_model(unsigned char first_byte) {
    // Never deleted, as the application.
    static std::array<Fuzz_Window*, 3> windows{};
    static const std::array<const Model_Traits*, 3> models{&lite_model, &plus_model, &pro_model};
    const std::size_t which = first_byte % windows.size();
    if (windows[which] == nullptr) {
        windows[which] = new Fuzz_Window(*models[which]);
    }
    return *windows[which];
}
