// SPDX-License-Identifier: MIT

// The reference for a main window: its form, set up and shown without our code, after the same
// dialogs as bare forms: halvern-bench-bare-form <model> <task>, as tool.cpp.

#include "benchmarks/models.h"
#include "benchmarks/programs/startup_driver.h"
#include "benchmarks/programs/tasks.h"
#include "ui_select_connection_method_dialog.h"
#include "ui_select_km_type_dialog.h"

#include <QApplication>
#include <QPushButton>

namespace {

constexpr QSize dialog_size(405, 170);
// The size that the tool gives its windows and the page that it shows first, so that both paint the
// same.
constexpr QSize window_size(1305, 693);
constexpr int configuration_page = 0;

template <typename Dialog_Form>
void answer_dialog(QPushButton* Dialog_Form::*continue_button) {
    QDialog dialog;
    Dialog_Form form;
    form.setupUi(&dialog);
    dialog.setFixedSize(dialog_size);
    QObject::connect(form.*continue_button, &QPushButton::clicked, &dialog, &QDialog::hide);
    dialog.exec();
}

template <typename Form>
int show_form(bool behind_method_dialog) {
    QMainWindow window;
    Form form;
    form.setupUi(&window);
    window.setFixedSize(window_size);
    form.stackedWidget->setCurrentIndex(configuration_page);
    if (behind_method_dialog) {
        answer_dialog(&Ui::Select_connection_method_Dialog::pushButton_continue);
    }
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString model = arguments.value(1);
    const QString task = arguments.value(2);

    const Startup_Driver driver(model, [&task](const Startup_Driver& done, const QMainWindow&) {
        carry_out_task(task, done.milliseconds_to_window());
    });
    // Only the task "window" shows the dialogs first; memory and idling are measured with the form
    // alone.
    const bool with_dialogs = task == "window";
    if (with_dialogs) {
        answer_dialog(&Ui::Select_KM_type_Dialog::pushButton_Continue);
    }
    const bool with_method_dialog = with_dialogs && model != "Lite";
    return with_form_of(model, [with_method_dialog]<class Form>(std::type_identity<Form>) {
        return show_form<Form>(with_method_dialog);
    });
}
