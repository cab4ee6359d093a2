// SPDX-License-Identifier: MIT

#include "tests/tour/in_gui.h"
#include "tests/tour/on_screen.h"
#include "tests/tour/pages.h"
#include "tests/tour/settings.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

#include <QComboBox>

namespace {

const char layout_line[] = "//FF0";
const char audio_line[] = "**A";

/// Chooses the other one of the two listed ports, which opens it and queries its unit.
void switch_to_second_unit(Tour_Driver& driver) {
    const QString second_port = in_gui([] {
        const auto* ports = qobject_cast<QComboBox*>(on_screen::find("comboBox_SelectPort"));
        return ports == nullptr ? QString() : ports->itemText(1);
    });
    driver.choose("comboBox_SelectPort", second_port);
    driver.see_received(2, "//BP");
    see_factory_settings(driver);
}

/// Both units report the same settings.
void compare_units(Tour_Driver& driver, const QString& last_line) {
    const QString first = driver.units.report(1, last_line);
    const QString second = driver.units.report(2, last_line);
    if (first != second || !second.contains("C1\t150 300 STUDIO")) {
        throw Step_Failed("the units differ:\n" + first + "\n---\n" + second);
    }
    driver.report_step("the second unit's own report is the first one's, line by line");
}

void copy_over_serial_line(Tour_Driver& driver, const QString& settings_file) {
    switch_to_second_unit(driver);
    load_and_compare(driver, settings_file);
}

} // namespace

void take_lite_tour(Tour_Driver& driver, const QString& settings_file) {
    pick_model(driver, "radioButton_LITE");
    change_everything(driver);
    save_settings(driver, settings_file, 24);
    copy_over_serial_line(driver, settings_file);
    compare_units(driver, layout_line);
}

void take_plus_serial_tour(Tour_Driver& driver, const QString& settings_file) {
    pick_model(driver, "radioButton_PLUS");
    take_serial_path(driver);
    change_everything(driver);
    save_settings(driver, settings_file, 24);
    copy_over_serial_line(driver, settings_file);
    compare_units(driver, layout_line);
}

void take_pro_serial_tour(Tour_Driver& driver, const QString& settings_file) {
    pick_model(driver, "radioButton_PRO");
    take_serial_path(driver);
    change_everything(driver);
    change_audio(driver);
    save_settings(driver, settings_file, 26);
    copy_over_serial_line(driver, settings_file);
    see_changed_audio(driver);
    compare_units(driver, audio_line);
}
