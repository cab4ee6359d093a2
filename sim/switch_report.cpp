// SPDX-License-Identifier: MIT

#include "sim/switch_report.h"

namespace {

/// Reads "C1", a tab, and columns of three digits, three digits and the name, one blank apart.
QByteArray custom_line(int number, const Custom_Entry& entry) {
    const auto column = [](int speed) { return QByteArray::number(speed).rightJustified(3, '0'); };
    return "C" + QByteArray::number(number) + "\t" + column(entry.x_speed) + " " +
           column(entry.y_speed) + " " + entry.name + "\n";
}

QByteArray two_digits(int number) { return QByteArray::number(number).rightJustified(2, '0'); }

} // namespace

QByteArray resolution_code(int resolution) {
    constexpr int fixed_resolutions = 9;
    if (resolution <= fixed_resolutions) {
        return QByteArray::number(resolution);
    }
    return "C" + QByteArray::number(resolution - fixed_resolutions);
}

QByteArray status_report(const Switch_State& state) {
    QByteArray report = "//RL\n";
    report += "KM Port Limit: " + QByteArray::number(state.port_limit) + "\n";
    report += QByteArray("KM Cursor Rolling: ") + (state.cursor_rolling ? "Enabled" : "Disabled");
    report += QByteArray("\nKM tracking mode: ") +
              (state.relative_mouse ? "Relative Mouse Mode" : "Absolute Mouse Mode") + "\n";
    int number = 1;
    for (const Custom_Entry& entry : state.custom_entries) {
        report += custom_line(number++, entry);
    }
    // The tool reads twelve characters after the key; in the next line, "Buzzer", they do no harm.
    report += "Channels resolution:";
    for (const int resolution : state.resolutions) {
        report += " " + resolution_code(resolution);
    }
    report += QByteArray("\nBuzzer: ") + (state.buzzer ? "on" : "off") + "\n";
    return report;
}

QByteArray information_report(const Switch_State& state) {
    QByteArray report = "Current Hotkey Trigger: " + state.hotkey_trigger + "\n";
    report += "Current KM Control: " + QByteArray::number(state.km_channel) + "\n";
    // No colon here: with one, the tool would read the line as a channel notice.
    report += "Current USB Control " + QByteArray::number(state.usb_channel) + "\n";
    report += "Current parking location: X=" + QByteArray::number(state.parking_x) +
              " Y=" + QByteArray::number(state.parking_y) + "\n";
    return report;
}

QByteArray layout_report(const Switch_State& state) {
    QByteArray report = "//";
    int channel = 1;
    for (const int position : state.layout_positions) {
        report += "FF0" + QByteArray::number(channel++) + "B" + two_digits(position);
    }
    return report + "\n";
}

QByteArray audio_report(const Switch_State& state) {
    switch (state.audio.mode) {
    case Audio_Routing::Mode::all:
        return "**A 0\n";
    case Audio_Routing::Mode::follow:
        return "**A F\n";
    case Audio_Routing::Mode::channels:
        break;
    }
    QByteArray report = "**A";
    int channel = 1;
    for (const bool chosen : state.audio.channels) {
        if (chosen) {
            report += " " + QByteArray::number(channel);
        }
        ++channel;
    }
    return report + (report == "**A" ? " x\n" : "\n");
}
