// SPDX-License-Identifier: MIT

// The bytes of commands, and custom entries as the unit and a file have them.
// Input: the text.

#include "link/command_encoding.h"
#include "link/switch_protocol.h"
#include "tests/fuzz/stated_ends.h"

namespace {

void check_commands(const std::string& text) {
    const Command_Encoder encoder([](const std::string& failure) { report_finding(failure); });
    std::string command = text;
    expect(encoder.string_to_bytes(command).toStdString() == text + '\r',
           "a command is sent as another");
    QString wide = QString::fromStdString(text);
    const QByteArray narrow = wide.toUtf8();
    expect(encoder.qstring_to_bytes(wide) == narrow + '\r', "a command is sent as another");
    expect(switch_protocol::submitted_custom_setting("C1", text, text, text).size() <= 99,
           "a custom entry is longer than the unit's line");
    expect(switch_protocol::filed_custom_setting(1, text, text, text).size() <= 49,
           "a custom entry is longer than the unit's line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_commands(text);
    return 0;
}
