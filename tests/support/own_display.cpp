// SPDX-License-Identifier: MIT

#include "tests/support/own_display.h"

#include "tests/support/virtual_display.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

namespace {

constexpr char mark[] = "HALVERN_TEST_OWN_DISPLAY";
constexpr int max_start = 20'000;

QProcessEnvironment environment_on(const QString& display) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", display);
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.remove("WAYLAND_DISPLAY");
    environment.remove("XAUTHORITY");
    environment.insert(mark, "1");
    return environment;
}

/// The window manager runs its start-up command once it manages windows.
bool start_manager(QProcess& manager, const QProcessEnvironment& environment) {
    manager.setProcessEnvironment(environment);
    manager.setStandardErrorFile(QProcess::nullDevice());
    manager.start("openbox", {"--sm-disable", "--startup", "echo yes"});
    return manager.waitForReadyRead(max_start);
}

void end(QProcess& manager) {
    manager.terminate();
    if (!manager.waitForFinished()) {
        manager.kill();
        manager.waitForFinished();
    }
}

} // namespace

bool is_on_own_display() { return qEnvironmentVariableIsSet(mark); }

int run_on_own_display(int argc, char** argv) {
    const QCoreApplication launcher(argc, argv);
    const Virtual_Display display;
    const QProcessEnvironment environment = environment_on(display.name());
    QProcess manager;
    if (display.name().isEmpty() || !start_manager(manager, environment)) {
        qCritical("no display for dragging: Xvfb and openbox are needed");
        return 1;
    }
    QProcess test;
    test.setProcessEnvironment(environment);
    test.setProcessChannelMode(QProcess::ForwardedChannels);
    test.start(QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
    test.waitForFinished(-1);
    end(manager);
    return test.exitStatus() == QProcess::NormalExit ? test.exitCode() : 1;
}
