#include "tests/tour/in_gui.h"
#include "tests/tour/pages.h"
#include "tests/tour/settings.h"
#include "tests/tour/sights.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

#include <QComboBox>

namespace {

const char layout_line[] = "//FF0";
const char audio_line[] = "**A";

/// Picks the other one of the two listed ports, which opens it and asks its unit.
void switch_to_second_unit(Visitor& visitor) {
    const QString second_port = in_gui([] {
        const auto* ports = qobject_cast<QComboBox*>(sights::find("comboBox_SelectPort"));
        return ports == nullptr ? QString() : ports->itemText(1);
    });
    visitor.choose("comboBox_SelectPort", second_port);
    visitor.see_received(2, "//BP");
    see_factory_settings(visitor);
}

/// Both units say the same of themselves.
void compare_units(Visitor& visitor, const QString& last_line) {
    const QString first = visitor.units.report(1, last_line);
    const QString second = visitor.units.report(2, last_line);
    if (first != second || !second.contains("C1\t150 300 STUDIO")) {
        throw Step_Failed("the units differ:\n" + first + "\n---\n" + second);
    }
    visitor.tell("the second unit's own report is the first one's, line by line");
}

void copy_over_serial_line(Visitor& visitor, const QString& settings_file) {
    switch_to_second_unit(visitor);
    load_and_compare(visitor, settings_file);
}

} // namespace

void take_lite_tour(Visitor& visitor, const QString& settings_file) {
    pick_model(visitor, "radioButton_LITE");
    change_everything(visitor);
    save_settings(visitor, settings_file, 24);
    copy_over_serial_line(visitor, settings_file);
    compare_units(visitor, layout_line);
}

void take_plus_serial_tour(Visitor& visitor, const QString& settings_file) {
    pick_model(visitor, "radioButton_PLUS");
    take_serial_road(visitor);
    change_everything(visitor);
    save_settings(visitor, settings_file, 24);
    copy_over_serial_line(visitor, settings_file);
    compare_units(visitor, layout_line);
}

void take_pro_serial_tour(Visitor& visitor, const QString& settings_file) {
    pick_model(visitor, "radioButton_PRO");
    take_serial_road(visitor);
    change_everything(visitor);
    change_audio(visitor);
    save_settings(visitor, settings_file, 26);
    copy_over_serial_line(visitor, settings_file);
    see_changed_audio(visitor);
    compare_units(visitor, audio_line);
}
