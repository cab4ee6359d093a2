// SPDX-License-Identifier: MIT

// The reference for a start: the model dialog's form, set up and shown, without our code.

#include "ui_select_km_type_dialog.h"

#include <QApplication>
#include <QDialog>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QDialog dialog;
    Ui::Select_KM_type_Dialog form;
    form.setupUi(&dialog);
    dialog.setFixedSize(405, 170);
    dialog.exec();
    return QApplication::exec();
}
