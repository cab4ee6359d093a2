// SPDX-License-Identifier: MIT

#include "tests/tour/tour_thread.h"

#include <QCoreApplication>

/// The entry into the unmodified program on Linux: this library is preloaded.

namespace {

void enter() {
    // The tour must not run in programs that the program or the tour starts.
    qunsetenv("LD_PRELOAD");
    begin_tour();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(enter)
