// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fuzz/fuzz_window.h"

#include <QByteArray>

/// Feeds an input to a window, as a switch, a clock and a user would: incoming text, cut into
/// chunks by marks, some of which do something more.
///
///     0x1C  only ends a chunk
///     0x1D  1000 ms pass
///     0x1E  the user presses Refresh
///     0x1F  the user submits the layout
///
/// While a message box is open, the next chunk is processed.
class Reply_Player {
public:
    Reply_Player(Fuzz_Window& window, Link_Method method, const QByteArray& input);

    /// Feeds all of it and lets the last timers fire.
    void play();

private:
    void step();
    void serve(const QByteArray& chunk);
    void act(char mark);
    void serve_under_box();
    void check() const;

    Fuzz_Window& window;
    Link_Method method;
    QByteArray rest;
    /// The process would have ended: nothing follows.
    bool ended = false;
    bool layout_submitted = false;
    int boxes_open = 0;
};
