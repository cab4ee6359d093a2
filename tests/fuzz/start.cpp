// SPDX-License-Identifier: MIT

#include "tests/fuzz/start.h"

#include <QApplication>

#include <iostream>

void start_application(int& argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // A Plus logs bad grid positions there.
    std::cout.rdbuf(nullptr);
    // Never deleted: otherwise the fonts would be reported as leaks.
    static const auto* application = new QApplication(argc, argv);
    static_cast<void>(application);
}
