// SPDX-License-Identifier: MIT

#include "tests/support/program_run.h"

#include "sim/port_list.h"
#include "tests/support/wait_until.h"

#include <QDir>

namespace {

QString in_build_folder(const QString& name) { return QDir(HALVERN_BUILD_FOLDER).filePath(name); }

QProcessEnvironment environment_of(const Program_Setting& setting) {
    QProcessEnvironment environment =
        environment_with_ports(QProcessEnvironment::systemEnvironment(), setting.ports,
                               in_build_folder(port_list_library));
    environment.remove("WAYLAND_DISPLAY");
    if (setting.display.isEmpty()) {
        environment.remove("DISPLAY");
        environment.insert("QT_QPA_PLATFORM", "offscreen");
    } else {
        environment.insert("DISPLAY", setting.display);
        environment.insert("QT_QPA_PLATFORM", "xcb");
    }
    for (auto variable = setting.environment.begin(); variable != setting.environment.end();
         ++variable) {
        environment.insert(variable.key(), variable.value());
    }
    return environment;
}

} // namespace

Program_Run::Program_Run(const Program_Setting& setting) {
    process.setProcessEnvironment(environment_of(setting));
    process.start(setting.program, setting.arguments);
    process.waitForStarted();
}

Program_Run::~Program_Run() {
    if (!has_ended()) {
        process.kill();
        process.waitForFinished();
    }
}

bool Program_Run::wait_for_end(int milliseconds) {
    return wait_until([this] { return has_ended(); }, milliseconds);
}

std::optional<int> Program_Run::exit_status() const {
    if (!started() || !has_ended() || process.exitStatus() != QProcess::NormalExit) {
        return std::nullopt;
    }
    return process.exitCode();
}

std::optional<int> Program_Run::ending_signal() const {
    if (!started() || !has_ended() || process.exitStatus() != QProcess::CrashExit) {
        return std::nullopt;
    }
    return process.exitCode();
}

const QByteArray& Program_Run::output() { return all_output += process.readAllStandardOutput(); }

const QByteArray& Program_Run::errors() { return all_errors += process.readAllStandardError(); }

QString halvern_program() {
    return qEnvironmentVariable("HALVERN_PROGRAM", in_build_folder("halvern"));
}

QString halvern_sim_program() { return in_build_folder("halvern-sim"); }
