// SPDX-License-Identifier: MIT

#include "usr/credentials_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "app/message_box.h"
#include "app/stay_painted.h"
#include "ui_credentials_dialog.h"
#include "usr/adapter_limits.h"
#include "usr/usr_configurator.h"

#include <QLineEdit>

Credentials_Dialog::Credentials_Dialog(const QString& given_current_ip,
                                       const QStringList& given_replies, QWidget* parent)
    : Wizard_Dialog(parent),
      current_ip(given_current_ip),
      replies(given_replies),
      ui(std::make_unique<Ui::Credentials_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 405, 205);
    ui->lineEdit_password->setEchoMode(QLineEdit::Password);
    ui->label_current_ip->setTextFormat(Qt::PlainText);
    ui->label_current_ip->setText(current_ip);
    assist_keyboard_and_screen_reader(*this);
}

Credentials_Dialog::~Credentials_Dialog() = default;

QString Credentials_Dialog::get_username() const { return ui->lineEdit_username->text(); }

QString Credentials_Dialog::get_password() const { return ui->lineEdit_password->text(); }

bool Credentials_Dialog::check_credentials() const {
    const char* error = nullptr;
    if (get_username().size() > max_credential_characters) {
        error = "Username is too long";
    } else if (get_password().size() > max_credential_characters) {
        error = "Password is too long";
    } else if (get_username().isEmpty()) {
        error = "Enter username";
    } else if (get_password().isEmpty()) {
        error = "Enter password";
    }
    if (error) {
        show_information_box(error, QMessageBox::Warning);
    }
    return !error;
}

void Credentials_Dialog::on_pushButton_ip_allocation_clicked() {
    if (!check_credentials()) {
        return;
    }
    ip_allocation.clear();
    USR_configurator configurator(current_ip, get_username(), get_password());
    ip_allocation += configurator.get_ip_allocation();
    // The next dialog logs in before it shows.
    hide_and_stay_painted(*this);
    forget_close();
}
