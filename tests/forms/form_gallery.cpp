// SPDX-License-Identifier: MIT

#include "tests/forms/form_gallery.h"

#include "ui_change_setting_for_usr_dialog.h"
#include "ui_corvane_lite_ui.h"
#include "ui_corvane_pro_ui.h"
#include "ui_corvane_ui.h"
#include "ui_credentials_dialog.h"
#include "ui_ip_settings_dialog.h"
#include "ui_select_connection_method_dialog.h"
#include "ui_select_hardware_dialog.h"
#include "ui_select_km_type_dialog.h"
#include "ui_yes_no_dialog.h"

#include <QDialog>
#include <QMainWindow>

#include <algorithm>
#include <stdexcept>

namespace {

const QSize main_window_size(1305, 693);

template <typename Window, typename Form>
Gallery_Form entry(const QString& name, QSize size) {
    return {name, size, [] {
                auto window = std::make_unique<Window>();
                Form().setupUi(window.get());
                return std::unique_ptr<QWidget>(std::move(window));
            }};
}

} // namespace

const std::vector<Gallery_Form>& all_forms() {
    static const std::vector<Gallery_Form> forms = {
        entry<QMainWindow, Ui::Corvane_LITE_UI>("Corvane_LITE_UI", main_window_size),
        entry<QMainWindow, Ui::Corvane_UI>("Corvane_UI", main_window_size),
        entry<QMainWindow, Ui::Corvane_PRO_UI>("Corvane_PRO_UI", main_window_size),
        entry<QDialog, Ui::Select_KM_type_Dialog>("Select_KM_type_Dialog", {405, 170}),
        entry<QDialog, Ui::Select_connection_method_Dialog>("Select_connection_method_Dialog",
                                                            {405, 170}),
        entry<QDialog, Ui::Select_hardware_Dialog>("Select_hardware_Dialog", {405, 341}),
        entry<QDialog, Ui::Credentials_Dialog>("Credentials_Dialog", {405, 205}),
        entry<QDialog, Ui::IP_Settings_Dialog>("IP_Settings_Dialog", {500, 450}),
        entry<QDialog, Ui::Change_setting_for_USR_Dialog>("Change_setting_for_USR_Dialog",
                                                          {425, 341}),
        entry<QDialog, Ui::Yes_No_Dialog>("Yes_No_Dialog", {312, 100}),
    };
    return forms;
}

std::unique_ptr<QWidget> build_form(const QString& class_name) {
    const auto form = std::ranges::find(all_forms(), class_name, &Gallery_Form::class_name);
    if (form == all_forms().end()) {
        throw std::out_of_range("no form " + class_name.toStdString());
    }
    auto window = form->set_up();
    window->setFixedSize(form->fixed_size);
    return window;
}
