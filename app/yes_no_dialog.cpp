// SPDX-License-Identifier: MIT

#include "app/yes_no_dialog.h"

#include "app/assistance.h"
#include "app/dialog_looks.h"
#include "ui_yes_no_dialog.h"

#include <QCloseEvent>

Yes_No_Dialog::Yes_No_Dialog(const QString& question, const QString& ok_caption,
                             const QString& cancel_caption, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::Yes_No_Dialog>()) {
    ui->setupUi(this);
    set_dialog_looks(*this, 312, 100, "Halvern");
    ui->label_message->setTextFormat(Qt::PlainText);
    ui->label_message->setText(question);
    ui->pushButton_OK->setText(ok_caption);
    ui->pushButton_Cancel->setText(cancel_caption);
    assist_keyboard_and_screen_reader(*this);
}

Yes_No_Dialog::~Yes_No_Dialog() = default;

void Yes_No_Dialog::on_pushButton_OK_clicked() {
    result_text = "OK";
    hide();
}

void Yes_No_Dialog::on_pushButton_Cancel_clicked() {
    result_text = "Cancel";
    hide();
}

void Yes_No_Dialog::closeEvent(QCloseEvent* event) {
    if (event->type() == QEvent::Close) {
        result_text = "Cancel";
    }
    QDialog::closeEvent(event);
}
