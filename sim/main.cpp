// SPDX-License-Identifier: MIT

#include "sim/line_input.h"
#include "sim/port_list.h"
#include "sim/simulator_console.h"
#include "sim/simulator_options.h"
#include "sim/termination_signals.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>

#include <cstdio>

namespace {

constexpr int not_understood_status = 2;
constexpr int not_started_status = 127;
constexpr int signal_status_base = 128;

/// Flushes each line, because a reader at the other end of a pipe waits for the port names.
void print(const QString& line) {
    std::puts(line.toLocal8Bit().constData());
    std::fflush(stdout);
}

/// The library is next to the program in the build folder, and in a separate folder in an
/// installation. Both paths are relative to the program, so that it can be moved.
QString find_port_list_library() {
    const QDir here(QCoreApplication::applicationDirPath());
    for (const char* place : {"", HALVERN_INSTALLED_LIBRARIES "/"}) {
        QString path = QDir::cleanPath(here.filePath(QString(place) + port_list_library));
        if (QFile::exists(path)) {
            return path;
        }
    }
    return port_list_library;
}

void print_how_to_start(const Simulator_Console& console) {
    print("Start Halvern with these ports:");
    print(QString("  %1=%2 LD_PRELOAD=%3 halvern")
              .arg(port_list_variable,
                   QString::fromLocal8Bit(port_list_value(console.device_names())),
                   find_port_list_library()));
    print("Lines of input control the units; \"help\" lists the commands.");
}

/// Runs the program with the units. This process ends when the program ends, with its status.
void run_program(const QStringList& command, const Simulator_Console& console, QProcess& process) {
    process.setProcessEnvironment(environment_with_ports(QProcessEnvironment::systemEnvironment(),
                                                         console.device_names(),
                                                         find_port_list_library()));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    QObject::connect(&process, &QProcess::finished, qApp,
                     [](int code, QProcess::ExitStatus status) {
                         const bool crashed = status == QProcess::CrashExit;
                         QCoreApplication::exit(crashed ? signal_status_base + code : code);
                     });
    QObject::connect(&process, &QProcess::errorOccurred, qApp, [&](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            std::fprintf(stderr, "halvern-sim: cannot start %s\n", qPrintable(process.program()));
            QCoreApplication::exit(not_started_status);
        }
    });
    process.start(command.first(), command.mid(1));
}

/// Ends the program first; its end then ends this process.
void end(QProcess& process) {
    if (process.state() == QProcess::NotRunning) {
        QCoreApplication::quit();
    } else {
        process.terminate();
    }
}

int run(const Simulator_Options& options) {
    Simulator_Console console(options, print);
    const Termination_Signals signals_to_end;
    const Line_Input input;
    QProcess process;

    const auto end_all = [&] { end(process); };
    QObject::connect(&signals_to_end, &Termination_Signals::received, qApp, end_all);
    QObject::connect(&console, &Simulator_Console::quit_wanted, qApp, end_all);
    QObject::connect(&input, &Line_Input::line, &console,
                     [&](const QString& line) { console.carry_out(line); });
    if (options.end_with_input) {
        QObject::connect(&input, &Line_Input::ended, qApp, end_all);
    }
    console.introduce_units();
    print_how_to_start(console);
    if (!options.program.isEmpty()) {
        // In the event loop, so that a failure to start can end it.
        QMetaObject::invokeMethod(
            qApp, [&] { run_program(options.program, console, process); }, Qt::QueuedConnection);
    }
    const int status = QCoreApplication::exec();
    console.keep_state();
    return status;
}

} // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const Simulator_Options options = read_simulator_options(QCoreApplication::arguments());
    if (options.help_wanted) {
        print(simulator_help().trimmed());
        return 0;
    }
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "halvern-sim: %s\nTry halvern-sim --help.\n",
                     qPrintable(options.error));
        return not_understood_status;
    }
    return run(options);
}
