// SPDX-License-Identifier: MIT

#pragma once

#include "sim/switch_state.h"

#include <QByteArray>

/// A switch without its line: its state, and its answers to commands. No input or output.
class Switch_Logic {
public:
    explicit Switch_Logic(Switch_Model model = Switch_Model::lite) : unit_model(model) {}

    /// Executes one command, given without its carriage return, and returns the answer, lines ended
    /// by a line feed. A command the unit does not know, or whose numbers are out of range, changes
    /// nothing. Its answer is a line without any of the texts that the tool searches for.
    QByteArray answer(const QByteArray& command);

    /// Puts keyboard, mouse and USB on a channel, as the unit's own hotkey does, and returns the
    /// notice "**M" that the unit then sends by itself. Audio on channels follows.
    /// @param channel 1 to 4.
    QByteArray notice_both(int channel);

    Switch_Model model() const { return unit_model; }
    const Switch_State& state() const { return unit_state; }

    /// Replaces the whole state, as if the unit had been set up elsewhere.
    void set_state(const Switch_State& state) { unit_state = state; }

private:
    Switch_Model unit_model;
    Switch_State unit_state;
};

/// The answer to an unknown command.
inline constexpr char not_understood[] = "Not understood.\n";

/// The answer to a command that needs no other answer. It has no digit and no capital F: after an
/// audio answer in the same buffer the tool would read them as audio channels.
inline constexpr char carried_out[] = "Done.\n";
