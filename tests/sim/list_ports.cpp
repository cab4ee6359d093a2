// SPDX-License-Identifier: MIT

#include <QSerialPortInfo>

#include <cstdio>

/// Prints the names of the serial ports, one per line, as any program sees them.
int main() {
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        std::puts(qPrintable(port.portName()));
    }
    return 0;
}
