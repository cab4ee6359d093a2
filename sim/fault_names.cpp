// SPDX-License-Identifier: MIT

#include "sim/fault_names.h"

#include <algorithm>

namespace {

bool set_duration(std::chrono::milliseconds& duration, const QString& value) {
    bool is_number = false;
    const uint milliseconds = value.toUInt(&is_number);
    if (is_number) {
        duration = std::chrono::milliseconds(milliseconds);
    }
    return is_number;
}

bool set_delay(Fault_Plan& plan, const QString& value) { return set_duration(plan.delay, value); }

bool set_gap(Fault_Plan& plan, const QString& value) { return set_duration(plan.chunk_gap, value); }

bool set_chunk(Fault_Plan& plan, const QString& value) {
    bool is_number = false;
    const int size = value.toInt(&is_number);
    if (!is_number || size < 1) {
        return false;
    }
    plan.chunk_size = size;
    return true;
}

bool set_missing(Fault_Plan& plan, const QString& value) {
    plan.missing_key = value.toUtf8();
    return !value.isEmpty();
}

bool set_crlf(Fault_Plan& plan, const QString&) { return plan.crlf = true; }

bool set_nul(Fault_Plan& plan, const QString&) { return plan.nul = true; }

bool set_invalid_utf8(Fault_Plan& plan, const QString&) { return plan.invalid_utf8 = true; }

bool set_oversize(Fault_Plan& plan, const QString&) { return plan.oversize = true; }

bool set_markup(Fault_Plan& plan, const QString&) { return plan.markup = true; }

bool set_silent(Fault_Plan& plan, const QString&) { return plan.silence = true; }

bool set_disappear(Fault_Plan& plan, const QString&) { return plan.disappearance = true; }

} // namespace

const std::vector<Fault_Word>& fault_names() {
    static const std::vector<Fault_Word> words = {
        {"delay", "ms", "Wait this long before each answer.", set_delay},
        {"chunk", "bytes", "Send answers in pieces of this size.", set_chunk},
        {"gap", "ms", "Wait this long between two pieces (default 5).", set_gap},
        {"crlf", "", "End lines with CR LF.", set_crlf},
        {"nul", "", "Put a NUL byte into the middle of each answer.", set_nul},
        {"invalid-utf8", "", "Put bytes that are not valid UTF-8 into each answer.",
         set_invalid_utf8},
        {"missing", "key", "Leave out the lines that contain this key.", set_missing},
        {"oversize", "", "Make each answer longer than 1000 characters.", set_oversize},
        {"markup", "", "Write the hotkey and the custom names as HTML.", set_markup},
        {"silent", "", "Execute commands without answering.", set_silent},
        {"disappear", "", "Disconnect instead of answering.", set_disappear},
    };
    return words;
}

bool set_fault(Fault_Plan& plan, const QString& name, const QString& value) {
    const auto word = std::find_if(fault_names().begin(), fault_names().end(),
                                   [&](const Fault_Word& known) { return known.name == name; });
    if (word == fault_names().end() || word->value_name.isEmpty() != value.isEmpty()) {
        return false;
    }
    Fault_Plan changed = plan;
    if (!word->set(changed, value)) {
        return false;
    }
    plan = changed;
    return true;
}
