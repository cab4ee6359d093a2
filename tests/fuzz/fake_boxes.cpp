#include "tests/fuzz/fake_boxes.h"

#include "app/event_log.h"
#include "app/message_box.h"

namespace {

struct Desk {
    fake_boxes::Happening happening;
    int boxes = 0;
};

Desk& the_desk() {
    static Desk desk;
    return desk;
}

} // namespace

void fake_boxes::while_shown(const Happening& happening) { the_desk().happening = happening; }

int fake_boxes::count() { return the_desk().boxes; }

void fake_boxes::forget() { the_desk().boxes = 0; }

// In the place of app/message_box.cpp.
void set_message_box_look(const QString& text, const int& icon, QMessageBox* box) {
    box->setText(text);
    box->setIcon(static_cast<QMessageBox::Icon>(icon));
}

void show_information_box(const QString& text, const int& /*icon*/) {
    ++the_desk().boxes;
    if (the_desk().happening) {
        the_desk().happening(text);
    }
}

void report_failure(const std::string& text) {
    write_log_line(text);
    show_information_box(QString::fromStdString(text), QMessageBox::Warning);
}
