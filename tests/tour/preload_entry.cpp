// SPDX-License-Identifier: MIT

#include "tests/tour/tour_thread.h"

#include <QCoreApplication>

/// The way into the unmodified program on Linux: this library is preloaded.

namespace {

void enter() {
    // Whatever the program or the tour starts is not to be visited.
    qunsetenv("LD_PRELOAD");
    begin_tour();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(enter)
