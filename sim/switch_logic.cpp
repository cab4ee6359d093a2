// SPDX-License-Identifier: MIT

#include "sim/switch_logic.h"

#include "sim/switch_report.h"

#include <QByteArrayList>

#include <algorithm>
#include <optional>

namespace {

/// The answer to a command; nothing if its arguments are invalid.
using Answer = std::optional<QByteArray>;

/// A question about the state.
struct Query {
    const char* text;
    QByteArray (*report)(const Switch_State& state);
    bool on_pro_only = false;
};

/// A command without arguments that sets one setting on or off.
struct Flag_Command {
    const char* text;
    bool Switch_State::*setting;
    bool value;
};

/// A command with arguments: the text that it begins with, and what it does with the text after
/// that.
struct Argument_Command {
    const char* start;
    Answer (*carry_out)(Switch_State& state, const QByteArray& rest);
    bool on_pro_only = false;
};

std::optional<int> number_between(const QByteArray& text, int low, int high) {
    const bool only_digits = std::all_of(text.begin(), text.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
    bool is_number = false;
    const int number = text.toInt(&is_number);
    if (!only_digits || !is_number || number < low || number > high) {
        return std::nullopt;
    }
    return number;
}

QByteArray notice(const char* key, int channel) {
    return QByteArray(key) + " " + QByteArray::number(channel) + "\n";
}

Answer set_km_channel(Switch_State& state, const QByteArray& rest) {
    const auto channel = number_between(rest, 1, 4);
    if (!channel) {
        return std::nullopt;
    }
    state.km_channel = *channel;
    return notice("**C", *channel);
}

Answer set_usb_channel(Switch_State& state, const QByteArray& rest) {
    const auto channel = number_between(rest, 1, 4);
    if (!channel) {
        return std::nullopt;
    }
    state.usb_channel = *channel;
    return notice("**U", *channel);
}

Answer set_port_limit(Switch_State& state, const QByteArray& rest) {
    const auto limit = number_between(rest, 2, 4);
    if (!limit) {
        return std::nullopt;
    }
    state.port_limit = *limit;
    return carried_out;
}

Answer set_parking(Switch_State& state, const QByteArray& rest) {
    const QByteArrayList fields = rest.split(' ');
    if (fields.size() != 2) {
        return std::nullopt;
    }
    const auto x = number_between(fields[0], 0, 100);
    const auto y = number_between(fields[1], 0, 100);
    if (!x || !y) {
        return std::nullopt;
    }
    state.parking_x = *x;
    state.parking_y = *y;
    return carried_out;
}

Answer set_resolution(Switch_State& state, const QByteArray& rest) {
    const QByteArrayList fields = rest.split(' ');
    if (fields.size() != 2) {
        return std::nullopt;
    }
    const auto channel = number_between(fields[0], 1, 4);
    const auto resolution = number_between(fields[1], 1, 13);
    if (!channel || !resolution) {
        return std::nullopt;
    }
    state.resolutions[static_cast<std::size_t>(*channel - 1)] = *resolution;
    return "**CE " + rest + "\n";
}

/// The entry's number follows one C or two: the tool's button sends "//MM CC1 ...", a settings file
/// "//MM C1 ...". The button's command ends with a space.
Answer set_custom_entry(Switch_State& state, const QByteArray& rest) {
    QByteArrayList fields = (rest.startsWith('C') ? rest.mid(1) : rest).split(' ');
    if (fields.size() < 3) {
        return std::nullopt;
    }
    const auto number = number_between(fields[0], 1, 4);
    const auto x_speed = number_between(fields[1], 1, 500);
    const auto y_speed = number_between(fields[2], 1, 500);
    if (!number || !x_speed || !y_speed) {
        return std::nullopt;
    }
    const QByteArray name = fields.mid(3).join(' ').trimmed();
    state.custom_entries[static_cast<std::size_t>(*number - 1)] = {*x_speed, *y_speed, name};
    return carried_out;
}

/// Reports how many columns and rows of the grid the four displays occupy.
QByteArray layout_confirmation(const std::array<int, 4>& positions) {
    std::array<int, 4> columns = positions;
    for (int& column : columns) {
        column = (column - 1) % 4;
    }
    const auto [left, right] = std::minmax_element(columns.begin(), columns.end());
    const auto [first, last] = std::minmax_element(positions.begin(), positions.end());
    const int rows = (*last - 1) / 4 - (*first - 1) / 4 + 1;
    return "Saving horizontal dimension as " + QByteArray::number(*right - *left + 1) +
           "\nSaving vertical dimension as " + QByteArray::number(rows) + "\n";
}

/// Four times "FF0", a channel digit, "B" and a cell of two digits. A digit may occur twice and
/// another be missing: this is how the tool writes inactive channels into a settings file. The last
/// one counts, and a missing channel stays where it is.
Answer set_layout(Switch_State& state, const QByteArray& rest) {
    constexpr qsizetype part_length = 7;
    if (rest.size() != 4 * part_length) {
        return std::nullopt;
    }
    std::array<int, 4> positions = state.layout_positions;
    for (qsizetype start = 0; start < rest.size(); start += part_length) {
        const QByteArray part = rest.mid(start, part_length);
        const auto channel = number_between(part.mid(3, 1), 1, 4);
        const auto position = number_between(part.mid(5), 1, 16);
        if (!part.startsWith("FF0") || part[4] != 'B' || !channel || !position) {
            return std::nullopt;
        }
        positions[static_cast<std::size_t>(*channel - 1)] = *position;
    }
    state.layout_positions = positions;
    return layout_confirmation(positions);
}

Answer set_audio(Switch_State& state, const QByteArray& rest) {
    Audio_Routing routing;
    routing.mode = Audio_Routing::Mode::channels;
    if (rest == "0") {
        routing.mode = Audio_Routing::Mode::all;
    } else if (rest == "f") {
        routing.mode = Audio_Routing::Mode::follow;
    } else if (rest != "x") {
        for (const QByteArray& field : rest.split(' ')) {
            const auto channel = number_between(field, 1, 4);
            if (!channel) {
                return std::nullopt;
            }
            routing.channels[static_cast<std::size_t>(*channel - 1)] = true;
        }
    }
    state.audio = routing;
    return carried_out;
}

constexpr std::array queries = {
    Query{"//rl", status_report},
    Query{"//??", information_report},
    Query{"//BP", layout_report},
    Query{"//QA", audio_report, true},
};

constexpr std::array flag_commands = {
    Flag_Command{"//ks", &Switch_State::relative_mouse, false},
    Flag_Command{"//km", &Switch_State::relative_mouse, true},
    Flag_Command{"//o0", &Switch_State::cursor_rolling, false},
    Flag_Command{"//o1", &Switch_State::cursor_rolling, true},
    Flag_Command{"//B0", &Switch_State::buzzer, false},
    Flag_Command{"//B1", &Switch_State::buzzer, true},
};

/// The first match counts, so the layout command, which is "//" and its four parts, is last.
constexpr std::array argument_commands = {
    Argument_Command{"//c", set_km_channel},   Argument_Command{"//u", set_usb_channel},
    Argument_Command{"//D", set_port_limit},   Argument_Command{"//MP ", set_parking},
    Argument_Command{"//CE ", set_resolution}, Argument_Command{"//MM C", set_custom_entry},
    Argument_Command{"//a ", set_audio, true}, Argument_Command{"//", set_layout},
};

} // namespace

QByteArray Switch_Logic::answer(const QByteArray& command) {
    const bool is_pro = unit_model == Switch_Model::pro;
    for (const Query& query : queries) {
        if (command == query.text && (is_pro || !query.on_pro_only)) {
            return query.report(unit_state);
        }
    }
    for (const Flag_Command& flag : flag_commands) {
        if (command == flag.text) {
            unit_state.*flag.setting = flag.value;
            return carried_out;
        }
    }
    if (command == "//F") {
        unit_state = Switch_State();
        return carried_out;
    }
    // A soft reset restarts the unit; the settings stay.
    if (command == "//R") {
        return carried_out;
    }
    for (const Argument_Command& known : argument_commands) {
        if (command.startsWith(known.start) && (is_pro || !known.on_pro_only)) {
            const QByteArray rest = command.mid(static_cast<qsizetype>(qstrlen(known.start)));
            return known.carry_out(unit_state, rest).value_or(not_understood);
        }
    }
    return not_understood;
}

QByteArray Switch_Logic::notice_both(int channel) {
    unit_state.km_channel = channel;
    unit_state.usb_channel = channel;
    unit_state.audio.mode = Audio_Routing::Mode::channels;
    unit_state.audio.channels = {};
    unit_state.audio.channels.at(static_cast<std::size_t>(channel - 1)) = true;
    return notice("**M", channel);
}
