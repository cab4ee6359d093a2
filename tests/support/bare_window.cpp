// SPDX-License-Identifier: MIT

#include "tests/support/bare_window.h"

#include "pages/model_traits.h"
#include "ui_corvane_lite_ui.h"
#include "ui_corvane_pro_ui.h"
#include "ui_corvane_ui.h"
#include "windows/form.h"

Bare_Window::Bare_Window(const Model_Traits& model_traits, Timers timers)
    : traits(model_traits), timers_run(timers == Timers::run) {
    if (&traits == &lite_model) {
        build<Ui::Corvane_LITE_UI>();
    } else if (&traits == &plus_model) {
        build<Ui::Corvane_UI>();
    } else {
        build<Ui::Corvane_PRO_UI>();
    }
    make_controller();
}

Bare_Window::~Bare_Window() = default;

template <class Form>
void Bare_Window::build() {
    const std::shared_ptr<Form> made = build_form<Form>(*this);
    widgets.emplace(window_widgets(*made));
    form = made;
}

void Bare_Window::make_controller() { the_controller.emplace(*this, traits, *widgets); }

void Bare_Window::serialRecieve() { controller().session.serialRecieve(); }

void Bare_Window::get_data_from_TQL_by_serial_port() {
    if (timers_run) {
        controller().session.replies.get_data_from_TQL_by_serial_port();
    }
}
void Bare_Window::set_current_layout_from_buff() {
    if (timers_run) {
        controller().set_current_layout_from_buff();
    }
}
void Bare_Window::scroll_Cursor_to_the_end() {
    if (timers_run) {
        controller().terminal.scroll_Cursor_to_the_end();
    }
}
void Bare_Window::load_second_part_of_settings() {
    if (timers_run) {
        controller().settings.load_second_part_of_settings();
    }
}
void Bare_Window::refresh_UI() {
    if (timers_run) {
        controller().session.refresh_UI();
    }
}
void Bare_Window::enable_refresh_button() {
    if (timers_run) {
        controller().chrome.enable_refresh_button();
    }
}
void Bare_Window::disable_refresh_button() {
    if (timers_run) {
        controller().chrome.disable_refresh_button();
    }
}

void Bare_Window::on_comboBox_KM_Control_currentIndexChanged() {
    controller().configuration.km_control_changed();
}
void Bare_Window::on_comboBox_USB_Control_currentIndexChanged() {
    controller().configuration.usb_control_changed();
}
void Bare_Window::on_comboBox_Select_Display_Mode_currentIndexChanged() {
    controller().configuration.mouse_mode_changed();
}
void Bare_Window::on_comboBox_Select_active_port_currentIndexChanged() {
    controller().configuration.active_ports_changed();
}
void Bare_Window::on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged() {
    controller().configuration.cursor_roll_changed();
}
void Bare_Window::on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged() {
    controller().mouse_speed.resolution_changed(1);
}
void Bare_Window::on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged() {
    controller().mouse_speed.resolution_changed(2);
}
void Bare_Window::on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged() {
    controller().mouse_speed.resolution_changed(3);
}
void Bare_Window::on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged() {
    controller().mouse_speed.resolution_changed(4);
}
void Bare_Window::on_comboBox_number_of_setting_currentIndexChanged(int index) {
    controller().mouse_speed.number_of_setting_changed(index);
}
void Bare_Window::on_tableWidget_cellChanged(int row, int column) {
    controller().layout.cell_changed(row, column);
}
void Bare_Window::on_tableWidget_cellPressed(int row, int column) {
    controller().layout.cell_pressed(row, column);
}
