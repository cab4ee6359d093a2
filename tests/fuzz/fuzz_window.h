// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fuzz/widget_memory.h"
#include "tests/support/bare_window.h"

#include <QByteArrayList>

#include <optional>

/// A main window of any model on a link that only records. One window is used for all inputs of a
/// process: between two of them its controller is replaced and the state of its widgets is
/// restored. This state is compared with a new window's from time to time.
class Fuzz_Window : public Bare_Window {

public:
    explicit Fuzz_Window(const Model_Traits& switch_model);

    /// The state of the window when its link has just been opened and the start commands have been
    /// sent.
    void start_again(Link_Method method);

    /// A chunk arrives at the serial port.
    void receive(const QByteArray& chunk);
    /// The text of a datagram arrives.
    void receive_datagram(const QByteArray& chunk);

    /// What has been written to the link since the start, write by write.
    [[nodiscard]] QByteArrayList& sent() { return all_sent; }

private:
    void open_link(Link_Method method);
    void check_reset();

    QByteArrayList all_sent;
    std::optional<Widget_Memory> memory;
    QByteArrayList first_description;
    int starts = 0;
};

/// The window of the model that an input's first byte names: Lite, Plus, Pro for '0', '1', '2'.
/// Each is created once in a process.
Fuzz_Window& window_of_model(unsigned char first_byte);
