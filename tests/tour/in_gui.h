// SPDX-License-Identifier: MIT

#pragma once

#include "tests/tour/step_failed.h"

#include <QCoreApplication>

#include <chrono>
#include <future>
#include <memory>

/// The program may block its only thread on purpose: a search and a login take some seconds.
inline constexpr std::chrono::seconds gui_patience{120};

/// Reads the widgets in the program's own thread, in whichever event loop runs there, and waits for
/// the answer.
/// @param look must not throw and must not open a modal dialog.
/// @throws Step_Failed if the thread does not run it in time.
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
