// SPDX-License-Identifier: MIT

#include "tests/tour/outside.h"
#include "tests/tour/step_failed.h"

#include <QFile>
#include <QProcess>

#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace {

/// tools/tour connects it with the units' output.
constexpr int units_descriptor = STDIN_FILENO;

} // namespace

void outside::xdotool(const QStringList& arguments) {
    constexpr int max_ms = 30'000;
    QProcess process;
    process.start("xdotool", arguments);
    if (!process.waitForFinished(max_ms) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        throw Step_Failed("xdotool " + arguments.join(' ') + ": " +
                          QString::fromLocal8Bit(process.readAllStandardError()));
    }
}

QByteArray outside::units_output(std::chrono::milliseconds patience) {
    pollfd output{units_descriptor, POLLIN, 0};
    if (poll(&output, 1, static_cast<int>(patience.count())) <= 0) {
        return {};
    }
    char bytes[4096];
    const ssize_t count = read(units_descriptor, bytes, sizeof bytes);
    return count <= 0 ? QByteArray() : QByteArray(bytes, count);
}

void outside::ask_units(const QByteArray& line) {
    QFile questions(qEnvironmentVariable("HALVERN_TOUR_QUESTIONS"));
    if (!questions.open(QIODevice::WriteOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered) ||
        questions.write(line + '\n') < 0) {
        throw Step_Failed("the units can't be asked");
    }
}

void outside::await_painted() {
    // What was painted has already been sent to the X server.
}

void outside::print(const QString& line) {
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

void outside::leave() {}
