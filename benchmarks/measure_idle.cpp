// SPDX-License-Identifier: MIT

// The activity of the idle tool with a filled page, compared with the bare form, because Qt itself
// wakes up now and then.

#include "benchmarks/measurements.h"
#include "benchmarks/tool_and_form.h"

#include <algorithm>

Rows measure_idle() {
    constexpr int rounds = 3;
    Rows rows;
    for (const QString& model : all_models) {
        Tool_And_Form series = run_in_turn(model, "idle", rounds);
        const double tool = median(series.tool["wake_ups"]);
        const double form = median(series.form["wake_ups"]);
        rows.append(row_with_limit(
            "wake-ups in 5 idle seconds, " + model, "the same bare form",
            QString("%1 (%2 - %3)")
                .arg(readable(std::max(tool - form, 0.0)), readable(tool), readable(form)),
            tool - form, 0, "0 of our own"));
        rows.append({"processor time in 5 idle seconds, " + model, "the same bare form",
                     QString("%1 / %2 ms")
                         .arg(readable(median(series.tool["processor_ms"])),
                              readable(median(series.form["processor_ms"]))),
                     "", Row::Verdict::information});
    }
    return rows;
}
