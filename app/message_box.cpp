#include "app/message_box.h"

#include "app/dialog_looks.h"
#include "app/event_log.h"

#include <QFont>

void set_message_box_look(const QString& text, const int& icon, QMessageBox* box) {
    box->setFont(QFont("Segoe UI", 12));
    box->setWindowTitle("Information");
    box->setWindowIcon(window_icon());
    box->setTextFormat(Qt::PlainText);
    box->setText(text);
    box->setIcon(static_cast<QMessageBox::Icon>(icon));
    box->setStandardButtons(QMessageBox::Ok);
    box->show();
}

void show_information_box(const QString& text, const int& icon) {
    QMessageBox box;
    set_message_box_look(QString::fromUtf8(text.toUtf8().constData()), icon, &box);
    box.exec();
}

void report_failure(const std::string& text) {
    write_log_line(text);
    show_information_box(QString::fromStdString(text), QMessageBox::Warning);
}
