#include "pages/range_check.h"

#include "app/message_box.h"

bool check_value_range(const QLineEdit& line_edit, const QString& prefix, int low, int high) {
    const int value = line_edit.text().toInt();
    if (low <= value && value <= high) {
        return true;
    }
    show_information_box(prefix + QString::number(low) + '-' + QString::number(high),
                         QMessageBox::Warning);
    return false;
}
