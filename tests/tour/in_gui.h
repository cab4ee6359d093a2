// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/step_failed.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <chrono>
#include <future>
#include <memory>

/// The program may block its one thread on purpose: a search and a login take some seconds.
inline constexpr std::chrono::seconds gui_patience{120};

/// Runs a look at the widgets in the program's own thread, in whatever event loop stands there at
/// the moment, and waits for the answer.
/// @param look must not throw and must not open a modal dialog.
/// @throws Step_Failed if the thread does not get to it.
template <typename Look>
auto in_gui(Look look) -> decltype(look()) {
    const auto promise = std::make_shared<std::promise<decltype(look())>>();
    auto answer = promise->get_future();
    QMetaObject::invokeMethod(
        qApp, [promise, look] { promise->set_value(look()); }, Qt::QueuedConnection);
    if (answer.wait_for(gui_patience) != std::future_status::ready) {
        throw Step_Failed("the program's event loop does not run");
    }
    return answer.get();
}

/// Waits until the program's thread has nothing left to do. Wine gives the X server what was
/// painted only then.
inline void await_idle() {
    const auto promise = std::make_shared<std::promise<void>>();
    const auto idle = promise->get_future();
    in_gui([promise] {
        return QObject::connect(
            QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, qApp,
            [promise] { promise->set_value(); }, Qt::SingleShotConnection);
    });
    if (idle.wait_for(gui_patience) != std::future_status::ready) {
        throw Step_Failed("the program does not come to rest");
    }
}
