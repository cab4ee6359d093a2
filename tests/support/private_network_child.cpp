// SPDX-License-Identifier: MIT

#include "tests/support/private_network.h"

#include <QFile>
#include <QFileInfo>
#include <QNetworkInterface>
#include <QTextStream>

/// Prints the name of the network it runs in, and that network's interfaces.
int main(int argc, char** argv) {
    return run_in_private_network(argc, argv, [](int, char**) {
        QTextStream out(stdout);
        out << QFileInfo(QFile::symLinkTarget("/proc/self/ns/net")).fileName() << '\n';
        for (const QNetworkInterface& network : QNetworkInterface::allInterfaces()) {
            out << network.name() << '\n';
        }
        return 42;
    });
}
