// SPDX-License-Identifier: MIT

// A settings file with any content, loaded in both parts on a recording link.
// Input: the model; 'r' for a window that a report has filled before; then the file. After the file
// come the switch's replies between the two parts, each chunk after a byte 0x1D; while a message
// box is open, the next chunk is processed.

#include "pages/model_traits.h"
#include "tests/fuzz/fake_boxes.h"
#include "tests/fuzz/fuzz_window.h"
#include "tests/fuzz/settings_paths.h"
#include "tests/fuzz/start.h"
#include "tests/fuzz/stated_ends.h"
#include "tests/fuzz/timed_slots.h"

namespace {

constexpr char pause_mark = 0x1D;

const QByteArray report = "//RL\nKM Port Limit: 3\nKM Cursor Rolling: Enabled\n"
                          "KM tracking mode: Relative Mouse Mode\nC1\t150 300 BANK\n"
                          "C2\t101 102 TREE\nC3\t201 202 LAMP\nC4\t500 499 SOFA\n"
                          "Channels resolution: 2 C1 C4 9\nBuzzer: on\n"
                          "Current Hotkey Trigger: Scroll Lock\nCurrent KM Control: 3\n"
                          "Current USB Control 4\nCurrent parking location: X=12 Y=34\n"
                          "//FF01B06FF02B07FF03B10FF04B11\n";

/// The writes of a load: every value is sent unchanged, and nothing else is sent.
void check_writes(const Fuzz_Window& window, const QByteArrayList& writes, const QByteArray& file) {
    // The Pro's file also has the line of the audio command.
    const int sent_lines = &window.model() == &pro_model ? 17 : 16;
    expect(writes.size() == sent_lines, "a load sent more or fewer lines than it has");
    QByteArray text = file;
    text.replace("\r\n", "\n");
    for (const QByteArray& write : writes) {
        expect(write.endsWith('\r'), "a line was sent without its carriage return");
        expect(text.contains(write.chopped(1)), "a line was sent that is not in the file");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    start_application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    constexpr std::size_t head = 2;
    if (size < head) {
        return -1;
    }
    QByteArrayList parts =
        QByteArray(reinterpret_cast<const char*>(data) + head, static_cast<qsizetype>(size - head))
            .split(pause_mark);
    const QByteArray file = parts.takeFirst();
    const bool has_replies = !parts.isEmpty();
    Fuzz_Window& window = window_of_model(data[0]);
    window.start_again(Link_Method::serial);
    bool ended = false;
    if (data[1] == 'r') {
        window.receive(report);
        pass_time(window, Reply_Dispatcher::report_wait_ms, ended);
    }
    const auto serve_next = [&] {
        if (!parts.isEmpty()) {
            const QByteArray chunk = parts.takeFirst();
            ends_as_stated(std::nullopt, [&] { window.receive(chunk); });
        }
    };
    fake_boxes::while_shown([&](const QString&) { serve_next(); });
    settings_paths::write(file);
    window.sent().clear();
    ends_as_stated(std::nullopt, [&] { window.controller().settings.load_settings_file(); });
    while (!parts.isEmpty()) {
        serve_next();
    }
    pass_time(window, Settings_Import_Export::second_part_wait_ms, ended);
    fake_boxes::while_shown({});
    if (ended) {
        return 0;
    }
    if (!has_replies) {
        check_writes(window, window.sent(), file);
    }
    const Session_State& state = window.controller().session.state;
    expect(state.write_enabled && state.ui_changes_enabled, "a load left the tool unable to send");
    return 0;
}
