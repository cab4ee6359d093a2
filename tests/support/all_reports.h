// SPDX-License-Identifier: MIT

#pragma once

#include "sim/switch_report.h"

/// Everything that a unit tells of its state.
inline QByteArray all_reports(const Switch_State& state) {
    return status_report(state) + information_report(state) + layout_report(state) +
           audio_report(state);
}
