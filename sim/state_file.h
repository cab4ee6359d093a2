// SPDX-License-Identifier: MIT

#pragma once

#include "sim/switch_state.h"

#include <QByteArrayList>
#include <QString>

#include <vector>

/// The commands that give a factory-fresh switch this state. The hotkey has no command.
QByteArrayList state_commands(const Switch_State& state);

/// Writes the state of several units: for each a line "unit" and its commands, one per line.
/// @return whether the file was written.
bool write_state_file(const QString& path, const std::vector<Switch_State>& states);

/// Reads what write_state_file() wrote. A line that is not a command of a switch is ignored.
/// @return one state for each unit in the file; none if it cannot be read.
std::vector<Switch_State> read_state_file(const QString& path);
