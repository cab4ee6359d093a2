// SPDX-License-Identifier: MIT

#include "tests/fuzz/fake_boxes.h"

#include "app/event_log.h"
#include "app/message_box.h"

namespace {

struct Box_Answers {
    fake_boxes::Happening happening;
    int boxes = 0;
};

Box_Answers& box_answers() {
    static Box_Answers answers;
    return answers;
}

} // namespace

void fake_boxes::while_shown(const Happening& happening) { box_answers().happening = happening; }

int fake_boxes::count() { return box_answers().boxes; }

void fake_boxes::forget() { box_answers().boxes = 0; }

// Replaces app/message_box.cpp.
void set_message_box_look(const QString& text, const int& icon, QMessageBox* box) {
    box->setText(text);
    box->setIcon(static_cast<QMessageBox::Icon>(icon));
}

void show_information_box(const QString& text, const int& /*icon*/) {
    ++box_answers().boxes;
    if (box_answers().happening) {
        box_answers().happening(text);
    }
}

void report_failure(const std::string& text) {
    write_log_line(text);
    show_information_box(QString::fromStdString(text), QMessageBox::Warning);
}
