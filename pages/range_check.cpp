// SPDX-License-Identifier: MIT

#include "pages/range_check.h"

#include "app/after_click.h"
#include "app/message_box.h"

#include <QLineEdit>

namespace {

bool is_in_range(const QLineEdit& line_edit, int low, int high) {
    const int value = line_edit.text().toInt();
    return low <= value && value <= high;
}

void warn_of_range(const QString& prefix, int low, int high) {
    show_information_box(prefix + QString::number(low) + '-' + QString::number(high),
                         QMessageBox::Warning);
}

} // namespace

bool check_value_range(const QLineEdit& line_edit, const QString& prefix, int low, int high) {
    if (is_in_range(line_edit, low, high)) {
        return true;
    }
    warn_of_range(prefix, low, high);
    return false;
}

void check_left_field(QLineEdit& line_edit, const QString& prefix, int low, int high) {
    if (!is_in_range(line_edit, low, high)) {
        run_after_click(line_edit, [prefix, low, high] { warn_of_range(prefix, low, high); });
    }
}
