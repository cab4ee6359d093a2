// SPDX-License-Identifier: MIT

#include "app/process_end.h"

#include <QMessageBox>

#include <cstdlib>

void end_process() { std::exit(1); }

void end_process_after_warning(QWidget& window, const QString& reason) {
    QMessageBox::warning(&window, " ", reason, QMessageBox::Ok);
    end_process();
}
