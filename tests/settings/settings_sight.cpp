#include "tests/settings/settings_sight.h"

#include "tests/windows/test_layout_table.h"

#include <QStringList>

const Sight good_sight = {{"km", "1"},
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

Sight look_at(const Lite_Fixture& lite) {
    const auto index = [&](const char* combo) {
        return QString::number(lite.combo(combo).currentIndex());
    };
    QStringList names;
    for (int item = 9; item < lite.resolution(1).count(); ++item) {
        names.append(lite.resolution(1).itemText(item));
    }
    QStringList resolutions;
    for (int channel = 1; channel <= 4; ++channel) {
        resolutions.append(QString::number(lite.resolution(channel).currentIndex()));
    }
    Sight sight = {
        {"km", index("comboBox_KM_Control")},
        {"usb", index("comboBox_USB_Control")},
        {"limit", index("comboBox_Select_active_port")},
        {"roll", index("comboBox_Enable_or_Disable_Cursor_Roll")},
        {"mode", index("comboBox_Select_Display_Mode")},
        {"parking", lite.line_edit("lineEdit_MouseParking_x").text() + '|' +
                        lite.line_edit("lineEdit_MouseParking_y").text()},
        {"names", names.join(' ')},
        {"resolutions", resolutions.join(' ')},
        {"tiles", Layout_Table(lite).picture()},
        {"buzzer", lite.button("pushButton_ON_Beep").isEnabled() ? "off" : "on"},
        {"fields", lite.line_edit("lineEdit_Mouse_Movement_X").text() + '|' +
                       lite.line_edit("lineEdit_Mouse_Movement_Y").text() + '|' +
                       lite.line_edit("lineEdit_Mouse_Movement_Name").text()},
    };
    for (int number = 1; number <= 4; ++number) {
        sight["label " + QString::number(number)] =
            lite.label("label_Custom_" + QString::number(number)).text();
    }
    return sight;
}

Sight good_sight_but(const Sight& changed) {
    Sight sight = good_sight;
    sight.insert(changed);
    return sight;
}
