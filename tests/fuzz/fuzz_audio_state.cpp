// SPDX-License-Identifier: MIT

// Audio states in replies, files and commands.
// Input: the text.

#include "link/audio_state.h"
#include "tests/fuzz/stated_ends.h"

namespace {

void check_audio(const std::string& text) {
    const Audio_Reading reading = read_audio_state(text);
    if (!reading.state) {
        expect(!reading.recognised, "a state that is none was recognised");
        return;
    }
    Audio_State state = *reading.state;
    // A text that names both is read as both; only one of them is written.
    if (state.follow) {
        state.channels = {};
    }
    const std::string filed = audio_state_text(state).toStdString();
    // Without any channel the file contains a command, which is read as no channel.
    expect(read_audio_state(filed).state == state, "an audio state does not come back");
    expect(audio_command(state).startsWith("//a "), "another audio command");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_audio(text);
    return 0;
}
