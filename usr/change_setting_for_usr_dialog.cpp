// SPDX-License-Identifier: MIT

#include "usr/change_setting_for_usr_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "app/message_box.h"
#include "ui_change_setting_for_usr_dialog.h"
#include "usr/adapter_limits.h"
#include "usr/usr_configurator.h"

#include <QLineEdit>

namespace {

QString text_or(const QLineEdit& field, const QString& value_in_force) {
    return field.text().isEmpty() ? value_in_force : field.text();
}

} // namespace

Change_setting_for_USR_Dialog::Change_setting_for_USR_Dialog(
    const QString& given_current_ip, const QString& given_static_ip,
    const QString& given_subnet_mask, const QString& given_gateway,
    const QString& given_ip_allocation, const QString& given_username,
    const QString& given_password, const QString& given_usr_name, QWidget* parent)
    : QDialog(parent),
      current_ip(given_current_ip),
      static_ip(given_static_ip),
      subnet_mask(given_subnet_mask),
      gateway(given_gateway),
      ip_allocation(given_ip_allocation),
      username(given_username),
      password(given_password),
      usr_name(given_usr_name),
      ui(std::make_unique<Ui::Change_setting_for_USR_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 425, 341);
    ui->lineEdit_Password->setEchoMode(QLineEdit::Password);
    assist_keyboard_and_screen_reader(*this);
}

Change_setting_for_USR_Dialog::~Change_setting_for_USR_Dialog() = default;

const char* Change_setting_for_USR_Dialog::find_error() const {
    if (ui->lineEdit_Name->text().size() > max_name_characters) {
        return "Name of USR is too long";
    }
    if (ui->lineEdit_Username->text().size() > max_credential_characters) {
        return "Username is too long";
    }
    if (ui->lineEdit_Password->text().size() > max_credential_characters) {
        return "Password is too long";
    }
    return nullptr;
}

bool Change_setting_for_USR_Dialog::check_fields() {
    if (const char* error = find_error()) {
        show_information_box(error, QMessageBox::Warning);
        return false;
    }
    new_usr_name = text_or(*ui->lineEdit_Name, usr_name);
    new_username = text_or(*ui->lineEdit_Username, username);
    new_password = text_or(*ui->lineEdit_Password, password);
    return true;
}

void Change_setting_for_USR_Dialog::on_pushButton_Apply_clicked() {
    if (!check_fields()) {
        settings_applied = false;
        return;
    }
    USR_configurator configurator(current_ip, static_ip, subnet_mask, gateway, ip_allocation,
                                  username, password);
    configurator.change_credentials_and_name(new_username, new_password, new_usr_name);
    username = new_username;
    password = new_password;
    usr_name = new_usr_name;
    settings_applied = true;
    show_information_box("Settings were applied successfully", QMessageBox::Information);
    hide();
}
