// SPDX-License-Identifier: MIT

#include "benchmarks/programs_beside.h"

#include "benchmarks/measurements.h"
#include "sim/port_list.h"

#include <QByteArrayList>
#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

namespace {

constexpr std::chrono::seconds max_run{60};

/// Processes events meanwhile, so that a simulated switch in this process answers.
bool wait_for_end(QProcess& process) {
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(max_run, &loop, &QEventLoop::quit);
    if (process.state() != QProcess::NotRunning) {
        loop.exec();
    }
    return process.state() == QProcess::NotRunning &&
           process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

} // namespace

QString file_beside(const QString& name) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(name);
}

QMap<QString, double> run_program(const QString& name, const QStringList& arguments,
                                  const QStringList& ports) {
    list_ports(ports);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(file_beside(name), arguments);
    if (!wait_for_end(process)) {
        process.kill();
        process.waitForFinished();
        throw Measurement_Failed(name + ' ' + arguments.join(' ') + " did not end well");
    }
    QMap<QString, double> numbers;
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
        const QByteArrayList words = line.split(' ');
        if (words.size() == 2) {
            numbers.insert(QString::fromUtf8(words[0]), words[1].toDouble());
        }
    }
    return numbers;
}
