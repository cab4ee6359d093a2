// SPDX-License-Identifier: MIT

// Proportional set size of the tool with a filled page, compared with the visible bare form.

#include "benchmarks/measurements.h"
#include "benchmarks/tool_and_form.h"

Rows measure_memory() {
    constexpr int rounds = 3;
    Rows rows;
    for (const QString& model : all_models) {
        Tool_And_Form series = run_in_turn(model, "memory", rounds);
        rows.append(ratio_row("memory (Pss) with a filled page, " + model, "the same bare form",
                              series.tool["pss_kb"], series.form["pss_kb"], "kB", 1.10));
    }
    return rows;
}
