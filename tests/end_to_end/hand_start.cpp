#include "tests/end_to_end/hand.h"

#include <QCoreApplication>

/// The way into the unmodified program: this library is preloaded, and the hand begins with the
/// first event loop of the program's application object and ends with that object.

namespace {

Hand* hand = nullptr;

void end_hand() {
    delete hand;
    hand = nullptr;
}

void start_hand() {
    QObject::connect(qApp, &QObject::destroyed, [] { tell("application gone"); });
    QMetaObject::invokeMethod(
        qApp,
        [] {
            hand = new Hand;
            qAddPostRoutine(end_hand);
        },
        Qt::QueuedConnection);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(start_hand)
