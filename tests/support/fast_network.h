// SPDX-License-Identifier: MIT

#pragma once

#include "sim/adapter_network.h"
#include "tests/support/virtual_time.h"

#include <QByteArrayList>

/// The address of the first adapter.
inline constexpr const char* adapter_ip = "127.0.0.2";

/// Simulated adapters in the test's own thread: they run while the tool blocks that thread, so that
/// a search takes no real time and its result does not depend on a race. For programs linked with
/// fake_waiting. Time is virtual as long as it exists.
class Fast_Network : public Adapter_Network {
public:
    Fast_Network();
    ~Fast_Network() override;

    /// Adds an adapter named "OSTREL" at 127.0.0.2, the next one at 127.0.0.3, and so on.
    Simulated_Adapter& add_adapter();

    /// Every frame broadcast so far, in hexadecimal.
    [[nodiscard]] const QByteArrayList& frames() const { return all_frames; }
    /// The frames of a command, given as two digits such as "03".
    [[nodiscard]] QByteArrayList frames_of(const QByteArray& command) const;

    /// The adapters' reactions to the frames, as "127.0.0.2: login, answered".
    [[nodiscard]] const QStringList& notes() const { return all_notes; }

    /// Drops the frames and notes so far.
    void forget();

    /// Processes what has been sent since the tool last blocked.
    void process_pending();

private:
    const Virtual_Time time;
    QByteArrayList all_frames;
    QStringList all_notes;
};

/// Makes the next search fail after it has added a reply of 3 bytes to its list.
void fail_next_search();
