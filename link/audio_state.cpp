// SPDX-License-Identifier: MIT

#include "link/audio_state.h"

#include "link/switch_protocol.h"

#include <string>

namespace {

QString channel_digits(const Audio_State& state) {
    QString digits;
    for (std::size_t i = 0; i < state.channels.size(); ++i) {
        if (state.channels[i]) {
            digits += QString::number(i + 1);
        }
    }
    return digits;
}

} // namespace

QString audio_command(const Audio_State& state) {
    if (state.all) {
        return switch_protocol::text(switch_protocol::audio_all);
    }
    if (state.follow) {
        return switch_protocol::text(switch_protocol::audio_follow);
    }
    return switch_protocol::audio_channels_command(channel_digits(state));
}

QString audio_state_text(const Audio_State& state) {
    if (state.all) {
        return "ALL";
    }
    if (state.follow) {
        return "FOLLOW";
    }
    const QString digits = channel_digits(state);
    return digits.isEmpty() ? switch_protocol::text(switch_protocol::audio_none) : digits;
}

Audio_Reading read_audio_state(std::string_view text) {
    std::string value(text);
    std::erase(value, ' ');
    if (value.empty()) {
        return {};
    }
    Audio_State state;
    if (value == "ALL" || value.front() == '0') {
        state.all = true;
        return {state, true};
    }
    if (value == "FOLLOW" || value.front() == 'F' || value == "1F") {
        state.follow = true;
        return {state, true};
    }
    bool recognised = false;
    for (const char character : value) {
        if (character >= '1' && character < '1' + channel_count) {
            state.channels[static_cast<std::size_t>(character - '1')] = true;
            recognised = true;
        } else if (character == 'F') {
            state.channels = {};
            state.follow = true;
            recognised = true;
        }
    }
    return {state, recognised};
}
