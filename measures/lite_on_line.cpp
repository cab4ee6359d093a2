#include "measures/lite_on_line.h"

#include "measures/measurements.h"
#include "sim/port_list.h"
#include "sim/switch_report.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"

#include <QLabel>
#include <QWindow>

#include <thread>

namespace {

Switch_State make_other_state() {
    Switch_State state;
    state.km_channel = 3;
    state.usb_channel = 2;
    state.hotkey_trigger = "Right Ctrl";
    state.relative_mouse = true;
    state.port_limit = 3;
    state.cursor_rolling = true;
    state.parking_x = 10;
    state.parking_y = 90;
    state.buzzer = false;
    state.custom_entries = {
        {{110, 210, "ALPHA"}, {120, 220, "BETA"}, {130, 230, "GAMMA"}, {140, 240, "DELTA"}}};
    state.resolutions = {10, 11, 12, 13};
    state.layout_positions = {5, 6, 9, 10};
    return state;
}

} // namespace

QByteArray whole_report(const Switch_State& state) {
    return status_report(state) + information_report(state) + layout_report(state);
}

const Switch_State& one_state() {
    static const Switch_State state;
    return state;
}

const Switch_State& other_state() {
    static const Switch_State state = make_other_state();
    return state;
}

Lite_On_Line::Lite_On_Line() {
    list_ports({pty.device_name()});
    lite = std::make_unique<Halvern_Velmoran_LITE>();
    lite->show();
    if (!wait_until([this] { return lite->windowHandle()->isExposed(); })) {
        throw Measurement_Failed("the window does not come on screen");
    }
}

void Lite_On_Line::call(const char* slot) const {
    if (!QMetaObject::invokeMethod(lite.get(), slot, Qt::DirectConnection)) {
        throw Measurement_Failed(QString("no slot ") + slot);
    }
}

bool Lite_On_Line::shows(const Switch_State& state) const {
    return find_child<QLabel>(*lite, "label_Current_Hotkey_Trigger_Data").text() ==
           QString::fromUtf8(state.hotkey_trigger);
}

void Lite_On_Line::fill_pages(const Switch_State& state) const {
    pty.drop_input();
    std::jthread unit([this, &state] {
        if (pty.read_up_to("//BP\r")) {
            pty.write(whole_report(state));
        }
    });
    call("refresh_UI");
    if (!wait_until([this, &state] { return shows(state); })) {
        throw Measurement_Failed("the pages are not filled");
    }
}
