// SPDX-License-Identifier: MIT

#include "benchmarks/tool_and_form.h"

#include "benchmarks/programs_beside.h"
#include "sim/simulated_switch.h"

namespace {

void add(QMap<QString, Samples>& series, const QMap<QString, double>& numbers) {
    for (auto number = numbers.begin(); number != numbers.end(); ++number) {
        series[number.key()].push_back(number.value());
    }
}

} // namespace

Tool_And_Form run_in_turn(const QString& model, const QString& task, int rounds) {
    const Simulated_Switch unit(switch_model(model));
    Tool_And_Form series;
    for (int round = -1; round < rounds; ++round) {
        const auto tool = run_program("halvern-bench-tool", {model, task}, {unit.device_name()});
        const auto form = run_program("halvern-bench-bare-form", {model, task}, {});
        if (round >= 0) {
            add(series.tool, tool);
            add(series.form, form);
        }
    }
    return series;
}
