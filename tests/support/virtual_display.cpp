// SPDX-License-Identifier: MIT

#include "tests/support/virtual_display.h"

Virtual_Display::Virtual_Display(const QString& screen) {
    constexpr int max_start = 20'000;
    // The server writes its display number to the given file, here its output, once it is ready.
    // Without -noreset it restarts whenever its last client disconnects, and a client that connects
    // at that moment may wait for ever.
    server.start("Xvfb",
                 {"-displayfd", "1", "-screen", "0", screen, "-nolisten", "tcp", "-noreset"});
    QByteArray number;
    while (!number.endsWith('\n') && server.waitForReadyRead(max_start)) {
        number += server.readAllStandardOutput();
    }
    if (number.endsWith('\n')) {
        display = ':' + QString::fromLatin1(number.trimmed());
    }
}

Virtual_Display::~Virtual_Display() {
    constexpr int max_end = 5'000;
    server.terminate();
    if (!server.waitForFinished(max_end)) {
        server.kill();
        server.waitForFinished();
    }
}
