// SPDX-License-Identifier: MIT

// From Continue in the model dialog to the main window's first content on screen, each time in a
// new process, compared with the bare form after the same dialogs.

#include "benchmarks/measurements.h"
#include "benchmarks/tool_and_form.h"

Rows measure_window() {
    constexpr int rounds = 15;
    Rows rows;
    for (const QString& model : all_models) {
        Tool_And_Form series = run_in_turn(model, "window", rounds);
        rows.append(ratio_row("Continue to main window on screen, " + model,
                              "the bare form set up and shown", series.tool["window_ms"],
                              series.form["window_ms"], "ms", 1.10));
    }
    return rows;
}
