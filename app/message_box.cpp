// SPDX-License-Identifier: MIT

#include "app/message_box.h"

#include "app/dialog_looks.h"
#include "app/event_log.h"

#include <QFont>
#include <QLoggingCategory>

namespace {

/// For a developer, off until switched on with QT_LOGGING_RULES="halvern.app.debug=true".
Q_LOGGING_CATEGORY(app_log, "halvern.app", QtWarningMsg)

/// The text of the exception that is being handled: the text for the user only names the
/// operation.
void log_handled_exception(const std::string& text) {
    const std::exception_ptr handled = std::current_exception();
    if (!handled) {
        return;
    }
    try {
        std::rethrow_exception(handled);
    } catch (const std::exception& exception) {
        qCDebug(app_log) << text.c_str() << "because:" << exception.what();
    } catch (...) {
        qCDebug(app_log) << text.c_str() << "because of an exception without words";
    }
}

} // namespace

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
    log_handled_exception(text);
    write_log_line(text);
    show_information_box(QString::fromStdString(text), QMessageBox::Warning);
}
