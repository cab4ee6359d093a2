// SPDX-License-Identifier: MIT

#include "usr/select_hardware_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "app/message_box.h"
#include "app/process_end.h"
#include "ui_select_hardware_dialog.h"
#include "usr/adapter_replies.h"

#include <QIcon>
#include <QSet>
#include <QVariant>

#include <algorithm>

Select_hardware_Dialog::Select_hardware_Dialog(QWidget* parent)
    : Wizard_Dialog(parent), ui(std::make_unique<Ui::Select_hardware_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 405, 341);
    set_buttons_enabled(false);
    refresh_hardware_list();
    set_buttons_enabled(true);
    assist_keyboard_and_screen_reader(*this);
}

Select_hardware_Dialog::~Select_hardware_Dialog() = default;

void Select_hardware_Dialog::refresh_hardware_list() {
    list_ready = false;
    if (search_USR_in_network() != 1) {
        show_information_box("No hardware online", QMessageBox::Warning);
        end_process();
    }
    ui->comboBox->clear();
    fill_hardware_list();
    set_buttons_enabled(true);
    list_ready = true;
    take_selected_ip();
}

void Select_hardware_Dialog::fill_hardware_list() {
    // A search that failed and could not be repeated leaves addresses without replies.
    const qsizetype count = std::min(USR_addresses.size(), USR_replies.size());
    for (qsizetype i = 0; i < count; ++i) {
        const QString item =
            USR_addresses[i]->toString() + "   " + get_name_from_reply(USR_replies[i]);
        ui->comboBox->insertItem(ui->comboBox->count(), QIcon(), item, QVariant());
    }
    remove_duplicate_items();
}

void Select_hardware_Dialog::remove_duplicate_items() {
    QSet<QString> seen;
    for (int index = ui->comboBox->count() - 1; index >= 0; --index) {
        const QString item = ui->comboBox->itemText(index);
        if (seen.contains(item)) {
            ui->comboBox->removeItem(index);
        } else {
            seen.insert(item);
        }
    }
}

void Select_hardware_Dialog::set_buttons_enabled(bool enabled) {
    ui->pushButton_Refresh->setEnabled(enabled);
    ui->pushButton_Continue->setEnabled(enabled);
}

void Select_hardware_Dialog::take_selected_ip() {
    const int index = ui->comboBox->currentIndex();
    const bool has_choice = index >= 0 && index < USR_addresses.size();
    selected_ip = has_choice ? USR_addresses[index]->toString() : QString();
}

void Select_hardware_Dialog::on_comboBox_currentIndexChanged() {
    if (list_ready) {
        take_selected_ip();
    }
}

void Select_hardware_Dialog::on_pushButton_Refresh_clicked() {
    set_buttons_enabled(false);
    refresh_hardware_list();
    forget_close();
}

void Select_hardware_Dialog::on_pushButton_Continue_clicked() {
    forget_close();
    hide();
}
