// SPDX-License-Identifier: MIT

#include "tests/end_to_end/modal_responder.h"

#include <QCoreApplication>

/// The entry into the unmodified program: this library is preloaded. The responder starts with the
/// first event loop of the program's application object and ends with that object.

namespace {

Modal_Responder* hand = nullptr;

void end_responder() {
    delete hand;
    hand = nullptr;
}

void start_responder() {
    QObject::connect(qApp, &QObject::destroyed, [] { report("application gone"); });
    QMetaObject::invokeMethod(
        qApp,
        [] {
            hand = new Modal_Responder;
            qAddPostRoutine(end_responder);
        },
        Qt::QueuedConnection);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(start_responder)
