// SPDX-License-Identifier: MIT

#include "app/select_km_type_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "app/message_box.h"
#include "ui_select_km_type_dialog.h"

#include <QRadioButton>

Select_KM_type_Dialog::Select_KM_type_Dialog(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::Select_KM_type_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 405, 170);
    ui->radioButton_PRO->setChecked(true);
    assist_keyboard_and_screen_reader(*this);
}

Select_KM_type_Dialog::~Select_KM_type_Dialog() = default;

bool Select_KM_type_Dialog::is_km_type_selected() const {
    return ui->radioButton_LITE->isChecked() || ui->radioButton_PLUS->isChecked() ||
           ui->radioButton_PRO->isChecked();
}

void Select_KM_type_Dialog::store_km_type() {
    km_type.clear();
    for (const QRadioButton* button :
         {ui->radioButton_LITE, ui->radioButton_PLUS, ui->radioButton_PRO}) {
        if (button->isChecked()) {
            km_type = button->text().toStdString();
            return;
        }
    }
}

void Select_KM_type_Dialog::on_pushButton_Continue_clicked() {
    if (!is_km_type_selected()) {
        show_information_box("Select version of KM", QMessageBox::Warning);
        return;
    }
    store_km_type();
    hide();
}
