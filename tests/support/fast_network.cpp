// SPDX-License-Identifier: MIT

#include "tests/support/fast_network.h"

#include "tests/support/fake_waiting.h"
#include "tests/support/raw_sender.h"

#include <stdexcept>

Fast_Network::Fast_Network() {
    if (!start()) {
        qFatal("the simulated adapters can't listen");
    }
    connect(this, &Adapter_Network::frame_received, this,
            [this](const QByteArray& frame) { all_frames << frame.toHex(); });
    fake_waiting::reset();
    fake_waiting::while_blocked([this] { process_pending(); });
}

Fast_Network::~Fast_Network() { fake_waiting::reset(); }

Simulated_Adapter& Fast_Network::add_adapter() {
    Adapter_State first;
    first.name = "OSTREL";
    Simulated_Adapter& adapter = add(numbered(first, static_cast<int>(adapters().size())));
    if (!adapter.is_online()) {
        qFatal("a simulated adapter can't be on the network");
    }
    adapter.set_time_away(std::chrono::milliseconds(0));
    connect(&adapter, &Simulated_Adapter::frame_taken, this,
            [this, &adapter](const QByteArray&, const Adapter_Reaction& reaction) {
                all_notes << adapter.unit().state().address.toString() + ": " + reaction.note;
            });
    return adapter;
}

QByteArrayList Fast_Network::frames_of(const QByteArray& command) const {
    QByteArrayList found;
    for (const QByteArray& frame : all_frames) {
        if (frame.mid(4, 2) == command) {
            found << frame;
        }
    }
    return found;
}

void Fast_Network::forget() {
    all_frames.clear();
    all_notes.clear();
}

void Fast_Network::process_pending() {
    virtual_time::let_datagrams_arrive();
    serve();
    virtual_time::let_datagrams_arrive();
}

void fail_next_search() {
    constexpr int readings_until_the_reply_is_taken = 50;
    fake_waiting::while_blocked([] { Raw_Sender().send("abc"); });
    fake_waiting::at_clock_reading(readings_until_the_reply_is_taken,
                                   [] { throw std::runtime_error("no clock now"); });
}
