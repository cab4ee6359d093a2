#include "tests/settings/settings_sight.h"

#include "tests/windows/test_layout_table.h"

#include <QStringList>

namespace {

const Sight common_sight = {{"km", "1"},
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

Sight look_at(const Settings_Desk& desk) {
    const Window_Fixture& fixture = desk.fixture;
    const auto index = [&](const char* combo) {
        return QString::number(fixture.combo(combo).currentIndex());
    };
    QStringList names;
    for (int item = 9; item < fixture.resolution(1).count(); ++item) {
        names.append(fixture.resolution(1).itemText(item));
    }
    QStringList resolutions;
    for (int channel = 1; channel <= 4; ++channel) {
        resolutions.append(QString::number(fixture.resolution(channel).currentIndex()));
    }
    Sight sight = {
        {"km", index("comboBox_KM_Control")},
        {"usb", index("comboBox_USB_Control")},
        {"limit", index("comboBox_Select_active_port")},
        {"roll", index("comboBox_Enable_or_Disable_Cursor_Roll")},
        {"mode", index("comboBox_Select_Display_Mode")},
        {"parking", fixture.line_edit("lineEdit_MouseParking_x").text() + '|' +
                        fixture.line_edit("lineEdit_MouseParking_y").text()},
        {"names", names.join(' ')},
        {"resolutions", resolutions.join(' ')},
        {"tiles", Layout_Table(fixture).picture()},
        {"buzzer", fixture.button("pushButton_ON_Beep").isEnabled() ? "off" : "on"},
        {"fields", desk.custom_field("X").text() + '|' + desk.custom_field("Y").text() + '|' +
                       desk.custom_field("Name").text()},
    };
    for (int number = 1; number <= 4; ++number) {
        sight["label " + QString::number(number)] =
            fixture.label("label_Custom_" + QString::number(number)).text();
    }
    if (desk.is_pro()) {
        sight["audio"] = desk.checked_audio_boxes();
    }
    return sight;
}

Sight good_sight(const Settings_Desk& desk, const Sight& changed) {
    Sight sight = common_sight;
    if (desk.is_pro()) {
        sight["audio"] = "ch2 ch4";
    }
    sight.insert(changed);
    return sight;
}
