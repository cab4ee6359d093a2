// SPDX-License-Identifier: MIT

#include "app/dialog_looks.h"

#include <QWidget>

QIcon window_icon() { return QIcon(":/img/logos/icon_logo_Velmoran.png"); }

void set_dialog_looks(QWidget& dialog, int width, int height) {
    set_dialog_looks(dialog, width, height, "Velmoran Ostrel");
}

void set_dialog_looks(QWidget& dialog, int width, int height, const QString& title) {
    dialog.setFixedSize(width, height);
    dialog.setWindowTitle(title);
    dialog.setWindowIcon(window_icon());
}
