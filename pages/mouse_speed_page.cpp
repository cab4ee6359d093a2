// SPDX-License-Identifier: MIT

#include "pages/mouse_speed_page.h"

#include "app/message_box.h"
#include "link/flag_guard.h"
#include "link/report_values.h"
#include "link/switch_protocol.h"
#include "link/switch_session.h"
#include "pages/combo_box.h"
#include "pages/range_check.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include <stdexcept>

namespace {

constexpr int speed_low = 1;
constexpr int speed_high = 500;

std::size_t list_index(int number_from_one) {
    return static_cast<std::size_t>(number_from_one - 1);
}

bool warn(const QString& text) {
    show_information_box(text, QMessageBox::Warning);
    return false;
}

} // namespace

Mouse_Speed_Page::Mouse_Speed_Page(const Mouse_Speed_Widgets& page_widgets,
                                   Switch_Session& switch_session)
    : widgets(page_widgets), session(switch_session) {}

void Mouse_Speed_Page::resolution_changed(int channel) {
    if (session.state.ui_changes_enabled) {
        session.writer.writeCommand(get_resolution_command(channel));
    }
}

void Mouse_Speed_Page::number_of_setting_changed(int index) {
    try {
        show_custom_setting(index);
    } catch (const std::out_of_range&) {
        // No report has filled the label yet.
        show_fields({});
    }
}

void Mouse_Speed_Page::submit_custom_setting() {
    if (!check_custom_setting()) {
        return;
    }
    session.writer.writeCommand(switch_protocol::submitted_custom_setting(
        widgets.comboBox_number_of_setting.currentText().toStdString(),
        widgets.lineEdit_Mouse_Movement_X.text().toStdString(),
        widgets.lineEdit_Mouse_Movement_Y.text().toStdString(),
        widgets.lineEdit_Mouse_Movement_Name.text().toStdString()));
    for (QComboBox* combo : widgets.resolution_combo_boxes) {
        combo->setItemText(current_custom_item(), widgets.lineEdit_Mouse_Movement_Name.text());
    }
    session.refresh_after(custom_setting_wait_ms);
}

QString Mouse_Speed_Page::get_resolution_command(int channel) const {
    return switch_protocol::resolution_command(QString::number(channel),
                                               resolutions_of(channel).currentIndex() + 1);
}

QString Mouse_Speed_Page::get_custom_setting_command(int number) const {
    if (session.state.status_buff.empty() || number < 1 || number > channel_count) {
        return {};
    }
    const std::string data = get_report_value(switch_protocol::custom_keys[list_index(number)],
                                              session.state.status_buff);
    const std::string y = data.substr(4, 3);
    const std::string x = data.substr(0, 3);
    const QString name =
        widgets.resolution_combo_boxes.front()->itemText(first_custom_item + number - 1);
    return QString::fromStdString(
        switch_protocol::filed_custom_setting(number, x, y, name.toStdString()));
}

QString Mouse_Speed_Page::get_custom_label_text(int number) const {
    return widgets.custom_setting_labels.at(list_index(number))->text();
}

void Mouse_Speed_Page::add_custom_setting_name(const std::string& text, std::size_t position) {
    const QString name = QString::fromStdString(custom_setting_name(text, position));
    for (QComboBox* combo : widgets.resolution_combo_boxes) {
        combo->addItem(name);
    }
}

void Mouse_Speed_Page::remove_custom_setting_items(int first, int last) {
    if (widgets.resolution_combo_boxes.front()->count() <= last_custom_item) {
        return;
    }
    const Flag_Guard silent(session.state.ui_changes_enabled, false);
    for (int item = last; item >= first; --item) {
        for (QComboBox* combo : widgets.resolution_combo_boxes) {
            combo->removeItem(item);
        }
    }
}

void Mouse_Speed_Page::set_custom_label(int number, const std::string& line) {
    widgets.custom_setting_labels.at(list_index(number))->setText(QString::fromStdString(line));
}

void Mouse_Speed_Page::show_custom_setting(int index) {
    const QLabel* label = widgets.custom_setting_labels.at(static_cast<std::size_t>(index));
    show_fields(read_custom_setting(label->text()));
}

void Mouse_Speed_Page::show_current_custom_setting() {
    show_custom_setting(widgets.comboBox_number_of_setting.currentIndex());
}

void Mouse_Speed_Page::set_channels_resolution() {
    int channel = 1;
    for (const std::string& number : read_channel_resolutions(session.state.status_buff)) {
        set_channel_resolution(channel, number);
        ++channel;
    }
}

void Mouse_Speed_Page::set_channel_resolution(int channel, const std::string& number) {
    set_combo_from_text(resolutions_of(channel), number);
}

bool Mouse_Speed_Page::check_custom_setting() const {
    if (widgets.lineEdit_Mouse_Movement_Name.text().isEmpty()) {
        return warn("Enter name of setting");
    }
    if (widgets.lineEdit_Mouse_Movement_X.text().isEmpty()) {
        return warn("Enter X for setting");
    }
    if (widgets.lineEdit_Mouse_Movement_Y.text().isEmpty()) {
        return warn("Enter Y for setting");
    }
    if (is_name_taken()) {
        return warn("This custom name already exists");
    }
    const QString prefix = "Mouse Speed Range is between ";
    return check_value_range(widgets.lineEdit_Mouse_Movement_X, prefix, speed_low, speed_high) &&
           check_value_range(widgets.lineEdit_Mouse_Movement_Y, prefix, speed_low, speed_high);
}

bool Mouse_Speed_Page::is_name_taken() const {
    const int found = widgets.resolution_combo_boxes.front()->findText(
        widgets.lineEdit_Mouse_Movement_Name.text().toUpper(),
        Qt::MatchExactly | Qt::MatchCaseSensitive);
    return found != -1 && found != current_custom_item();
}

QComboBox& Mouse_Speed_Page::resolutions_of(int channel) const {
    return *widgets.resolution_combo_boxes.at(list_index(channel));
}

int Mouse_Speed_Page::current_custom_item() const {
    return first_custom_item + widgets.comboBox_number_of_setting.currentIndex();
}

void Mouse_Speed_Page::show_fields(const Custom_Setting& setting) {
    widgets.lineEdit_Mouse_Movement_X.setText(setting.x);
    widgets.lineEdit_Mouse_Movement_Y.setText(setting.y);
    widgets.lineEdit_Mouse_Movement_Name.setText(setting.name);
}
