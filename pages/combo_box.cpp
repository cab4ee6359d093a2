// SPDX-License-Identifier: MIT

#include "pages/combo_box.h"

#include "app/event_log.h"

#include <QComboBox>

#include <exception>

void set_combo_from_text(QComboBox& combo, const std::string& text) {
    if (text.empty()) {
        return;
    }
    int number = 0;
    try {
        number = std::stoi(text);
    } catch (const std::exception& failure) {
        write_log_line(failure.what());
        return;
    }
    combo.setCurrentIndex(number > 0 ? number - 1 : -1);
}
