// SPDX-License-Identifier: MIT

#include "tests/tour/pages.h"
#include "tests/tour/settings.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

#include <QApplication>

namespace {

const char first_address[] = "127.0.0.2";
const char second_address[] = "127.0.0.3";

void look_at_admin_settings(Tour_Driver& driver) {
    driver.click("pushButton_Admin_Settings");
    driver.type("lineEdit_Name", "WEST WING");
    driver.take_picture("admin-settings");
    driver.close_window();
    driver.see("the main window alone",
               [] { return QApplication::activeModalWidget() == nullptr; });
    driver.see_shown("label_name_of_USR", "  Name: ADAPTER");
    driver.report_step("admin settings opened, and closed without a change");
}

void copy_over_adapter(Tour_Driver& driver, const QString& settings_file) {
    driver.click("pushButton_Connection_Settings");
    take_network_path(driver, second_address);
    see_factory_settings(driver);
    load_and_compare(driver, settings_file);
    driver.report_step(
        "the second unit's report, asked for anew, fills the pages with what was saved");
}

} // namespace

void take_plus_adapter_tour(Tour_Driver& driver, const QString& settings_file) {
    pick_model(driver, "radioButton_PLUS");
    take_network_path(driver, first_address);
    change_everything(driver);
    look_at_admin_settings(driver);
    save_settings(driver, settings_file, 24);
    copy_over_adapter(driver, settings_file);
}

void take_pro_adapter_tour(Tour_Driver& driver, const QString& settings_file) {
    pick_model(driver, "radioButton_PRO");
    take_network_path(driver, first_address);
    change_everything(driver);
    look_at_admin_settings(driver);
    change_audio(driver);
    save_settings(driver, settings_file, 26);
    copy_over_adapter(driver, settings_file);
    see_changed_audio(driver);
}
