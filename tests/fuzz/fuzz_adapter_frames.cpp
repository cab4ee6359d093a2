// SPDX-License-Identifier: MIT

// The frames to an adapter, made from any text that a user may type.
// Input: the text.

#include "tests/fuzz/out_of_range_end.h"
#include "usr/adapter_frames.h"
#include "usr/hex_text.h"

namespace {

void check_frames(const QString& text) {
    expect(frame_checksum(text).size() == 2, "a checksum is not one byte");
    // Text that does not fit makes the frame longer, and is not cut.
    const Adapter_Login login{"d8b04c000002", text, text};
    expect(compose_login_frame(login).startsWith("ff1303d8b04c000002"), "another login frame");
    expect(compose_apply_frame(login).startsWith("ff1304d8b04c000002"), "another apply frame");
    const bool is_address = dotted_to_hex(text).size() >= 6;
    ends_as_stated(out_of_range_if(!is_address, field_missing), [&] {
        static_cast<void>(
            compose_config_frame(login, {"80", text, text, text, text_to_hex(text), text, text}));
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_frames(QString::fromStdString(text));
    return 0;
}
