// SPDX-License-Identifier: MIT

#include "tests/tour/unit_line.h"

#include "tests/tour/outside.h"
#include "tests/tour/step_failed.h"

namespace {

constexpr std::chrono::seconds patience_for_units{120};

} // namespace

void Unit_Line::await_command(const QString& unit, const QString& command) {
    lines_met.clear();
    for (;;) {
        const QString line = next_line(patience_for_units);
        if (line.isNull()) {
            throw Step_Failed(QString("%1 has not received %2, but:\n%3")
                                  .arg(unit, command, lines_met.join('\n')));
        }
        if (line.endsWith(unit + command)) {
            return;
        }
        lines_met.append(line);
    }
}

QString Unit_Line::report(int unit_number, const QString& last_line) {
    outside::ask_units(QString("#%1 report").arg(unit_number).toLatin1());
    QStringList report;
    for (;;) {
        const QString line = next_line(patience_for_units);
        if (line.isNull()) {
            throw Step_Failed("no report, but: " + report.join('\n'));
        }
        if (line == "//RL" || !report.isEmpty()) {
            report.append(line);
        }
        if (!report.isEmpty() && line.startsWith(last_line)) {
            return report.join('\n');
        }
    }
}

QString Unit_Line::next_line(std::chrono::milliseconds patience) {
    while (!unread.contains('\n')) {
        const QByteArray bytes = outside::units_output(patience);
        if (bytes.isEmpty()) {
            return {};
        }
        unread.append(bytes);
    }
    const qsizetype end = unread.indexOf('\n');
    const QString line = QString::fromUtf8(unread.left(end));
    unread.remove(0, end + 1);
    return line;
}
