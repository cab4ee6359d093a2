// SPDX-License-Identifier: MIT

#include "sim/fault_plan.h"

#include <QByteArrayList>

namespace {

constexpr char hotkey_key[] = "Current Hotkey Trigger: ";

QByteArray as_markup(const QByteArray& text) {
    return "<b>" + text + "</b><img src=\"file:///nowhere.png\">";
}

/// A custom entry's line is "C", a digit, a tab, and the name after eight columns.
QByteArray mark_up_line(const QByteArray& line) {
    constexpr int key_length = 3;
    constexpr int name_start = key_length + 8;
    const int hotkey_start = static_cast<int>(qstrlen(hotkey_key));
    if (line.startsWith(hotkey_key)) {
        return hotkey_key + as_markup(line.mid(hotkey_start));
    }
    if (line.startsWith('C') && line.indexOf('\t') == key_length - 1 && line.size() >= name_start) {
        return line.left(name_start) + as_markup(line.mid(name_start));
    }
    return line;
}

/// Lines that contain none of the keys that the tool searches for, 1100 characters in all.
QByteArray filling() { return (QByteArray(109, '.') + '\n').repeated(10); }

} // namespace

QByteArray corrupt_text(const Fault_Plan& plan, const QByteArray& answer) {
    QByteArrayList lines;
    for (const QByteArray& line : answer.split('\n')) {
        if (plan.missing_key.isEmpty() || !line.contains(plan.missing_key)) {
            lines.append(plan.markup ? mark_up_line(line) : line);
        }
    }
    if (plan.invalid_utf8) {
        // A lone continuation byte, and the start of a sequence that never ends.
        lines.first() += "\x80\xC3";
    }
    QByteArray text = lines.join(plan.crlf ? "\r\n" : "\n");
    if (plan.nul) {
        text.insert(text.size() / 2, '\0');
    }
    return plan.oversize ? text + filling() : text;
}

std::vector<Timed_Chunk> plan_chunks(const Fault_Plan& plan, const QByteArray& answer) {
    if (plan.silence || plan.disappearance || answer.isEmpty()) {
        return {};
    }
    const QByteArray text = corrupt_text(plan, answer);
    const qsizetype size = plan.chunk_size > 0 ? plan.chunk_size : text.size();
    std::vector<Timed_Chunk> chunks;
    for (qsizetype start = 0; start < text.size(); start += size) {
        chunks.push_back({start == 0 ? plan.delay : plan.chunk_gap, text.mid(start, size)});
    }
    return chunks;
}
