// SPDX-License-Identifier: MIT

#include "sim/state_file.h"

#include "sim/switch_logic.h"
#include "sim/switch_report.h"

#include <QFile>
#include <QSaveFile>

namespace {

constexpr char unit_line[] = "unit";

QByteArray audio_command(const Audio_Routing& audio) {
    switch (audio.mode) {
    case Audio_Routing::Mode::all:
        return "//a 0";
    case Audio_Routing::Mode::follow:
        return "//a f";
    case Audio_Routing::Mode::channels:
        break;
    }
    QByteArray command = "//a";
    for (std::size_t index = 0; index < audio.channels.size(); ++index) {
        if (audio.channels[index]) {
            command += " " + QByteArray::number(index + 1);
        }
    }
    return command == "//a" ? "//a x" : command;
}

} // namespace

QByteArrayList state_commands(const Switch_State& state) {
    const auto numbered = [](const char* start, int number) {
        return start + QByteArray::number(number);
    };
    QByteArrayList commands = {
        numbered("//c", state.km_channel),
        numbered("//u", state.usb_channel),
        numbered("//D", state.port_limit),
        state.relative_mouse ? "//km" : "//ks",
        state.cursor_rolling ? "//o1" : "//o0",
        numbered("//MP ", state.parking_x) + numbered(" ", state.parking_y),
        state.buzzer ? "//B1" : "//B0",
    };
    for (int index = 0; index < 4; ++index) {
        const auto at = static_cast<std::size_t>(index);
        const Custom_Entry& entry = state.custom_entries.at(at);
        commands.append(numbered("//MM C", index + 1) + numbered(" ", entry.x_speed) +
                        numbered(" ", entry.y_speed) + " " + entry.name);
        commands.append(numbered("//CE ", index + 1) + numbered(" ", state.resolutions.at(at)));
    }
    // The report has the form of the command.
    commands.append(layout_report(state).trimmed());
    commands.append(audio_command(state.audio));
    return commands;
}

bool write_state_file(const QString& path, const std::vector<Switch_State>& states) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    for (const Switch_State& state : states) {
        file.write(unit_line + QByteArray("\n") + state_commands(state).join('\n') + "\n");
    }
    return file.commit();
}

std::vector<Switch_State> read_state_file(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    std::vector<Switch_State> states;
    // A Pro understands the commands of all models.
    Switch_Logic unit(Switch_Model::pro);
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line == unit_line) {
            states.emplace_back();
            unit.set_state(Switch_State());
        } else if (!states.empty()) {
            unit.answer(line);
            states.back() = unit.state();
        }
    }
    return states;
}
