// SPDX-License-Identifier: MIT

#include "tests/robustness/unit_snapshot.h"

#include <QCheckBox>
#include <QStringList>

namespace {

constexpr int fixed_resolutions = 9;
constexpr int channels = 4;
const QString none = "(none)";

QString numbered(const char* what, int number) { return QString("%1 %2").arg(what).arg(number); }

/// The choice of a box as its number from `first` on.
QString choice(const QComboBox& box, int first) {
    return box.currentIndex() < 0 ? none : QString::number(box.currentIndex() + first);
}

QString choice(const QComboBox& box, const char* off, const char* on) {
    return box.currentIndex() < 0 ? none : QString(box.currentIndex() == 1 ? on : off);
}

QString buzzer(const Window_Fixture& at) {
    const bool can_be_put_on = at.button("pushButton_ON_Beep").isEnabled();
    const bool can_be_put_off = at.button("pushButton_OFF_Beep").isEnabled();
    if (can_be_put_on == can_be_put_off) {
        return none;
    }
    return can_be_put_off ? "on" : "off";
}

QString audio(const Window_Fixture& at) {
    QStringList checked;
    for (const char* name : {"ALL", "FOLLOW", "ch1", "ch2", "ch3", "ch4"}) {
        const auto* box = at.window().findChild<QCheckBox*>(QString("checkBox_") + name);
        if (box != nullptr && box->isChecked()) {
            checked << name;
        }
    }
    return checked.isEmpty() ? none : checked.join(' ');
}

QString audio(const Audio_Routing& routing) {
    if (routing.mode == Audio_Routing::Mode::all) {
        return "ALL";
    }
    if (routing.mode == Audio_Routing::Mode::follow) {
        return "FOLLOW";
    }
    QStringList checked;
    for (int channel = 1; channel <= channels; ++channel) {
        if (routing.channels.at(static_cast<std::size_t>(channel - 1))) {
            checked << "ch" + QString::number(channel);
        }
    }
    return checked.isEmpty() ? none : checked.join(' ');
}

template <class Positions>
QString layout(const Positions& positions) {
    QStringList texts;
    for (const int position : positions) {
        texts << QString::number(position);
    }
    return texts.join(' ');
}

} // namespace

Unit_Snapshot look_at_unit(const Window_Fixture& at) {
    Unit_Snapshot snapshot = {
        {"km", choice(at.combo("comboBox_KM_Control"), 1)},
        {"usb", choice(at.combo("comboBox_USB_Control"), 1)},
        {"mode", choice(at.combo("comboBox_Select_Display_Mode"), "absolute", "relative")},
        {"ports", choice(at.combo("comboBox_Select_active_port"), 2)},
        {"rolling", choice(at.combo("comboBox_Enable_or_Disable_Cursor_Roll"), "off", "on")},
        {"parking x", at.line_edit("lineEdit_MouseParking_x").text()},
        {"parking y", at.line_edit("lineEdit_MouseParking_y").text()},
        {"buzzer", buzzer(at)},
        {"hotkey", at.label("label_Current_Hotkey_Trigger_Data").text()},
        {"layout", layout(at.layout_positions())},
    };
    if (at.device.unit().model() == Switch_Model::pro) {
        snapshot["audio"] = audio(at);
    }
    for (int number = 1; number <= channels; ++number) {
        const QComboBox& box = at.resolution(number);
        snapshot[numbered("entry", number)] =
            at.label(numbered("label_Custom", number).replace(' ', '_')).text();
        snapshot[numbered("resolution", number)] = choice(box, 1);
        const QString name = at.resolution(1).itemText(fixed_resolutions + number - 1);
        snapshot[numbered("name", number)] =
            at.resolution(1).count() < fixed_resolutions + number ? none : name;
    }
    return snapshot;
}

Unit_Snapshot snapshot_of(const Switch_State& state, Switch_Model model) {
    Unit_Snapshot snapshot = {
        {"km", QString::number(state.km_channel)},
        {"usb", QString::number(state.usb_channel)},
        {"mode", state.relative_mouse ? "relative" : "absolute"},
        {"ports", QString::number(state.port_limit)},
        {"rolling", state.cursor_rolling ? "on" : "off"},
        {"parking x", QString::number(state.parking_x)},
        {"parking y", QString::number(state.parking_y)},
        {"buzzer", state.buzzer ? "on" : "off"},
        {"hotkey", state.hotkey_trigger},
        {"layout", layout(state.layout_positions)},
    };
    if (model == Switch_Model::pro) {
        snapshot["audio"] = audio(state.audio);
    }
    for (int number = 1; number <= channels; ++number) {
        const auto index = static_cast<std::size_t>(number - 1);
        const Custom_Entry& entry = state.custom_entries.at(index);
        snapshot[numbered("entry", number)] =
            QString("%1 %2 ").arg(entry.x_speed).arg(entry.y_speed) + entry.name;
        snapshot[numbered("name", number)] = entry.name;
        snapshot[numbered("resolution", number)] = QString::number(state.resolutions.at(index));
    }
    return snapshot;
}

QString differences(const Unit_Snapshot& shown, const Unit_Snapshot& wanted) {
    QStringList lines;
    for (auto point = wanted.begin(); point != wanted.end(); ++point) {
        const QString text = shown.value(point.key());
        if (text != point.value()) {
            lines << QString("%1 is \"%2\", not \"%3\"").arg(point.key(), text, point.value());
        }
    }
    return lines.join('\n');
}

QString link_status(const Window_Fixture& at) {
    const bool green = at.is_connected();
    QStringList odd;
    const auto look = [&](const char* name, bool wanted) {
        if (at.button(name).isEnabled() != wanted) {
            odd << name;
        }
    };
    look("pushButton_ON_Connection", !green);
    look("pushButton_OFF_Connection", green);
    look("pushButton_Refresh", green);
    look("pushButton_Mouse_Speed_Settings", green);
    look("TopologyAndDisplayBtn", green);
    look("pushButton_Create_Settings_File", green);
    if (at.combo("comboBox_KM_Control").isEnabled() != green) {
        odd << "comboBox_KM_Control";
    }
    const QString status = green ? "connected" : "not connected";
    return odd.isEmpty() ? status : status + ", but for " + odd.join(", ");
}
