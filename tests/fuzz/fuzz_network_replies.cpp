// SPDX-License-Identifier: MIT

// Replies over the network, from a datagram's text to the widgets of a whole window.
// Input: the model, which is never the Lite, then the input of a Reply_Player.

#include "pages/model_traits.h"
#include "tests/fuzz/reply_player.h"
#include "tests/fuzz/start.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    start_application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) {
        return -1;
    }
    Fuzz_Window& window = window_of_model(data[0]);
    if (&window.model() == &lite_model) {
        return -1;
    }
    const QByteArray replies(reinterpret_cast<const char*>(data) + 1,
                             static_cast<qsizetype>(size) - 1);
    Reply_Player(window, Link_Method::network, replies).play();
    return 0;
}
