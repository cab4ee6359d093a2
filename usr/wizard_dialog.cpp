// SPDX-License-Identifier: MIT

#include "usr/wizard_dialog.h"

#include <QCloseEvent>

void Wizard_Dialog::closeEvent(QCloseEvent* event) {
    if (event->type() == QEvent::Close) {
        closed_by_user = true;
    }
    QDialog::closeEvent(event);
}
