// SPDX-License-Identifier: MIT

#include "pages/configuration_page.h"

#include "app/yes_no_dialog.h"
#include "link/switch_protocol.h"
#include "link/switch_session.h"
#include "pages/combo_box.h"
#include "pages/layout_page.h"
#include "pages/model_traits.h"
#include "pages/range_check.h"
#include "pages/setting_values.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr const char* parking_range_text = "Mouse Parking Range is between ";
constexpr int parking_low = 0;
constexpr int parking_high = 100;

} // namespace

Configuration_Page::Configuration_Page(const Configuration_Widgets& page_widgets,
                                       Switch_Session& switch_session, Layout_Page& layout_page,
                                       const Model_Traits& model_traits)
    : widgets(page_widgets), session(switch_session), layout(layout_page), model(model_traits) {}

void Configuration_Page::km_control_changed() { send_user_change(get_km_control_command()); }

void Configuration_Page::usb_control_changed() { send_user_change(get_usb_control_command()); }

void Configuration_Page::mouse_mode_changed() { send_user_change(get_mouse_mode_command()); }

void Configuration_Page::active_ports_changed() {
    if (send_user_change(get_limit_ports_command())) {
        layout.update_inactive_channels(widgets.comboBox_Select_active_port.currentIndex());
    }
}

void Configuration_Page::cursor_roll_changed() { send_user_change(get_cursor_roll_command()); }

void Configuration_Page::parking_x_edited() {
    check_left_field(widgets.lineEdit_MouseParking_x, parking_range_text, parking_low,
                     parking_high);
}

void Configuration_Page::parking_y_edited() {
    check_left_field(widgets.lineEdit_MouseParking_y, parking_range_text, parking_low,
                     parking_high);
}

void Configuration_Page::apply_mouse_parking() {
    session.writer.writeCommand(get_mouse_parking_command());
}

void Configuration_Page::factory_reset() {
    Yes_No_Dialog question("Perform factory reset?", "Confirm", "Cancel");
    question.exec();
    if (question.get_result_text() != "OK") {
        return;
    }
    session.writer.writeCommand(switch_protocol::factory_reset);
    session.refresh_after_reset();
}

void Configuration_Page::soft_reset() { session.writer.writeCommand(switch_protocol::soft_reset); }

void Configuration_Page::beep_on() {
    show_buzzer(true);
    session.writer.writeCommand(switch_protocol::buzzer_on);
}

void Configuration_Page::beep_off() {
    show_buzzer(false);
    session.writer.writeCommand(switch_protocol::buzzer_off);
}

QString Configuration_Page::get_km_control_command() const {
    return switch_protocol::numbered(switch_protocol::km_control,
                                     widgets.comboBox_KM_Control.currentIndex() + 1);
}

QString Configuration_Page::get_usb_control_command() const {
    return switch_protocol::numbered(switch_protocol::usb_control,
                                     widgets.comboBox_USB_Control.currentIndex() + 1);
}

QString Configuration_Page::get_limit_ports_command() const {
    return switch_protocol::numbered(switch_protocol::port_limit,
                                     widgets.comboBox_Select_active_port.currentIndex() + 2);
}

QString Configuration_Page::get_cursor_roll_command() const {
    const bool off = widgets.comboBox_Enable_or_Disable_Cursor_Roll.currentIndex() == 0;
    return switch_protocol::text(off ? switch_protocol::cursor_roll_off
                                     : switch_protocol::cursor_roll_on);
}

QString Configuration_Page::get_mouse_parking_command() const {
    return switch_protocol::mouse_parking_command(widgets.lineEdit_MouseParking_x.text(),
                                                  widgets.lineEdit_MouseParking_y.text());
}

QString Configuration_Page::get_mouse_mode_command() const {
    const QComboBox& source = model.mouse_mode_source == Mouse_Mode_Source::km_control
                                  ? widgets.comboBox_KM_Control
                                  : widgets.comboBox_Select_Display_Mode;
    return switch_protocol::text(source.currentIndex() == 0 ? switch_protocol::mouse_absolute
                                                            : switch_protocol::mouse_relative);
}

QString Configuration_Page::get_buzzer_command() const {
    return switch_protocol::text(widgets.pushButton_ON_Beep.isEnabled()
                                     ? switch_protocol::buzzer_off
                                     : switch_protocol::buzzer_on);
}

void Configuration_Page::set_cursor_roll_from_value(const std::string& value) {
    const bool on = value == "Enabled" || value == switch_protocol::cursor_roll_on;
    widgets.comboBox_Enable_or_Disable_Cursor_Roll.setCurrentIndex(on ? 1 : 0);
}

void Configuration_Page::set_mouse_mode_from_value(const std::string& value) {
    const bool relative =
        value == "Relative Mouse Mode" || value == switch_protocol::mouse_relative;
    widgets.comboBox_Select_Display_Mode.setCurrentIndex(relative ? 1 : 0);
}

void Configuration_Page::set_buzzer_from_value(const std::string& value) {
    show_buzzer(value == "on" || value == switch_protocol::buzzer_on);
}

void Configuration_Page::apply_mouse_parking_value(const std::string& value) {
    const Filed_Parking parking = filed_parking(value);
    set_mouse_parking(parking.x, parking.y);
}

void Configuration_Page::set_km_channel(const std::string& channel) {
    set_combo_from_text(widgets.comboBox_KM_Control, channel);
}

void Configuration_Page::set_usb_channel(const std::string& channel) {
    set_combo_from_text(widgets.comboBox_USB_Control, channel);
}

void Configuration_Page::set_hotkey_trigger(const std::string& text) {
    widgets.label_Current_Hotkey_Trigger_Data.setText(QString::fromStdString(text));
}

void Configuration_Page::set_mouse_parking(const std::string& x, const std::string& y) {
    widgets.lineEdit_MouseParking_x.setText(QString::fromStdString(x));
    widgets.lineEdit_MouseParking_y.setText(QString::fromStdString(y));
}

bool Configuration_Page::send_user_change(const QString& command) {
    if (!session.state.ui_changes_enabled) {
        return false;
    }
    session.writer.writeCommand(command);
    return true;
}

void Configuration_Page::show_buzzer(bool on) {
    widgets.pushButton_ON_Beep.setEnabled(!on);
    widgets.pushButton_OFF_Beep.setEnabled(on);
}
