#include "tests/tour/unit_line.h"

#include "tests/tour/step_failed.h"

#include <QFile>

#include <poll.h>
#include <unistd.h>

namespace {

/// tools/tour connects it with the units' output.
constexpr int units_output = STDIN_FILENO;

constexpr std::chrono::seconds patience_for_units{30};

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
    QFile questions(qEnvironmentVariable("HALVERN_TOUR_QUESTIONS"));
    if (!questions.open(QIODevice::WriteOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered) ||
        questions.write(QString("#%1 report\n").arg(unit_number).toLatin1()) < 0) {
        throw Step_Failed("the units can't be asked");
    }
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
        pollfd output{units_output, POLLIN, 0};
        if (poll(&output, 1, static_cast<int>(patience.count())) <= 0) {
            return {};
        }
        char bytes[4096];
        const ssize_t count = read(units_output, bytes, sizeof bytes);
        if (count <= 0) {
            return {};
        }
        unread.append(bytes, count);
    }
    const qsizetype end = unread.indexOf('\n');
    const QString line = QString::fromUtf8(unread.left(end));
    unread.remove(0, end + 1);
    return line;
}
