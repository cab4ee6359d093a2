// SPDX-License-Identifier: MIT

#include "usr/select_connection_method_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "app/event_log.h"
#include "app/message_box.h"
#include "app/stay_painted.h"
#include "ui_select_connection_method_dialog.h"

Select_connection_method_Dialog::Select_connection_method_Dialog(QWidget* parent)
    : Wizard_Dialog(parent), ui(std::make_unique<Ui::Select_connection_method_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 405, 170);
    ui->radioButton_TCP_IP->setChecked(true);
    ui->radioButton_RS232->setChecked(false);
    assist_keyboard_and_screen_reader(*this);
    open_log();
}

Select_connection_method_Dialog::~Select_connection_method_Dialog() = default;

void Select_connection_method_Dialog::on_pushButton_continue_clicked() {
    if (ui->radioButton_RS232->isChecked()) {
        rs232_selected = true;
        tcp_ip_selected = false;
    } else if (ui->radioButton_TCP_IP->isChecked()) {
        tcp_ip_selected = true;
        rs232_selected = false;
    } else {
        show_information_box("Select connection method", QMessageBox::Warning);
        return;
    }
    method_chosen = true;
    forget_close();
    // The search for adapters may follow.
    hide_and_stay_painted(*this);
}
