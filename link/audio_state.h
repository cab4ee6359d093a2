// SPDX-License-Identifier: MIT

#pragma once

#include "link/channels.h"

#include <QString>

#include <array>
#include <optional>
#include <string_view>

/// Where the audio goes: to all channels, after the keyboard and mouse, or to a set of channels.
struct Audio_State {
    bool all = false;
    bool follow = false;
    std::array<bool, channel_count> channels{};

    bool operator==(const Audio_State&) const = default;
};

/// The command that sets a unit to this state: "//a 0", "//a f", "//a 1 3", "//a x".
QString audio_command(const Audio_State& state);

/// The state as a settings file records it: "ALL", "FOLLOW", "13"; without any channel the command
/// text "//a x".
QString audio_state_text(const Audio_State& state);

/// Reads a value text. Spaces are ignored.
struct Audio_Reading {
    /// Empty for a text without content: the panel stays. An unknown text clears the panel.
    std::optional<Audio_State> state;
    /// Whether the text was understood.
    bool recognised = false;
};

Audio_Reading read_audio_state(std::string_view text);
