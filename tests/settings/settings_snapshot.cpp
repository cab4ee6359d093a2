// SPDX-License-Identifier: MIT

#include "tests/settings/settings_snapshot.h"

#include "tests/support/layout_table.h"

#include <QStringList>

namespace {

const Snapshot common_snapshot = {{"km", "1"},
                                  {"usb", "2"},
                                  {"limit", "1"},
                                  {"roll", "1"},
                                  {"mode", "1"},
                                  {"parking", "30| 70"},
                                  {"names", "BANK TREE LAMP SOFA"},
                                  {"resolutions", "1 12 9 8"},
                                  {"tiles", "..../.12./.3d./...."},
                                  {"buzzer", "off"},
                                  {"label 1", "150 300 BANK"},
                                  {"label 2", "101 102 TREE"},
                                  {"label 3", "201 202 LAMP"},
                                  {"label 4", "500 499 SOFA"},
                                  {"fields", "150|300|BANK"}};

} // namespace

Snapshot look_at(const Settings_Fixture& fixture) {
    const Window_Fixture& at = fixture.window_fixture;
    const auto index = [&](const char* combo) {
        return QString::number(at.combo(combo).currentIndex());
    };
    QStringList names;
    for (int item = 9; item < at.resolution(1).count(); ++item) {
        names.append(at.resolution(1).itemText(item));
    }
    QStringList resolutions;
    for (int channel = 1; channel <= 4; ++channel) {
        resolutions.append(QString::number(at.resolution(channel).currentIndex()));
    }
    Snapshot snapshot = {
        {"km", index("comboBox_KM_Control")},
        {"usb", index("comboBox_USB_Control")},
        {"limit", index("comboBox_Select_active_port")},
        {"roll", index("comboBox_Enable_or_Disable_Cursor_Roll")},
        {"mode", index("comboBox_Select_Display_Mode")},
        {"parking", at.line_edit("lineEdit_MouseParking_x").text() + '|' +
                        at.line_edit("lineEdit_MouseParking_y").text()},
        {"names", names.join(' ')},
        {"resolutions", resolutions.join(' ')},
        {"tiles", Layout_Table(at).picture()},
        {"buzzer", at.button("pushButton_ON_Beep").isEnabled() ? "off" : "on"},
        {"fields", fixture.custom_field("X").text() + '|' + fixture.custom_field("Y").text() + '|' +
                       fixture.custom_field("Name").text()},
    };
    for (int number = 1; number <= 4; ++number) {
        snapshot["label " + QString::number(number)] =
            at.label("label_Custom_" + QString::number(number)).text();
    }
    if (fixture.is_pro()) {
        snapshot["audio"] = fixture.checked_audio_boxes();
    }
    return snapshot;
}

Snapshot good_snapshot(const Settings_Fixture& fixture, const Snapshot& changed) {
    Snapshot snapshot = common_snapshot;
    if (fixture.is_pro()) {
        snapshot["audio"] = "ch2 ch4";
    }
    snapshot.insert(changed);
    return snapshot;
}
