// SPDX-License-Identifier: MIT

#pragma once

#include "sim/switch_state.h"

#include <QByteArray>

/// The answers with which a switch reports its state: lines for a human reader, each ended by a
/// line feed, with the texts that the tool searches for. All four together stay below 1000
/// characters as long as the names in the state are short, because the tool drops longer
/// texts.

/// The answer to "//rl", which begins with the marker "//RL".
QByteArray status_report(const Switch_State& state);

/// The answer to "//??".
QByteArray information_report(const Switch_State& state);

/// The answer to "//BP": the layout in the form of the layout command.
QByteArray layout_report(const Switch_State& state);

/// The answer to "//QA".
QByteArray audio_report(const Switch_State& state);

/// A resolution as the report writes it: "1" to "9", or "C1" to "C4" for 10 to 13.
QByteArray resolution_code(int resolution);
