// SPDX-License-Identifier: MIT

#include "tests/support/adapter_process.h"

namespace {

constexpr int patience_ms = 20'000;

} // namespace

Adapter_Process::Adapter_Process(const QStringList& arguments) {
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(HALVERN_SIM_ADAPTER, arguments);
    while (lines_with(" adapter(s) from ").isEmpty()) {
        if (!process.waitForReadyRead(patience_ms)) {
            qFatal("the simulated adapters don't start: %s",
                   qPrintable(process.errorString() + ' ' + all_lines.join('\n')));
        }
    }
}

Adapter_Process::~Adapter_Process() {
    process.terminate();
    process.waitForFinished(patience_ms);
}

QStringList Adapter_Process::lines() {
    // Without an event loop nobody else reads the input.
    process.waitForReadyRead(1);
    while (process.canReadLine()) {
        all_lines << QString::fromUtf8(process.readLine()).trimmed();
    }
    return all_lines;
}
