// SPDX-License-Identifier: MIT

// One report applied to a window part by part, without the handler that turns its failures into a
// box, then saved to a settings file and loaded from it.
// Input: the model, then the report.

#include "pages/model_traits.h"
#include "tests/fuzz/fuzz_window.h"
#include "tests/fuzz/settings_paths.h"
#include "tests/fuzz/start.h"
#include "tests/fuzz/stated_ends.h"
#include "tests/fuzz/timed_slots.h"

namespace {

void apply(Fuzz_Window& window, const std::string& report) {
    Main_Window_Controller& controller = window.controller();
    controller.session.state.info_buff = report;
    controller.session.state.status_buff = report;
    controller.session.state.layout_buff = value_behind("//FF", report);
    if (controller.session.state.layout_buff.empty()) {
        controller.session.state.layout_buff = "0";
    }
    ends_as_stated(std::nullopt, [&] { controller.reports.apply_information_report(); });
    ends_as_stated(status_end(report), [&] { controller.reports.apply_status_report(); });
    ends_as_stated(layout_end(controller.session.state.layout_buff, &window.model() == &plus_model),
                   [&] { controller.layout.set_layout_from_report(); });
}

/// @return whether the program would still be running.
bool save(Fuzz_Window& window, const std::string& report) {
    settings_paths::write({});
    const bool ended = ends_as_stated(save_end(report),
                                      [&] { window.controller().settings.create_settings_file(); });
    expect(settings_paths::read().startsWith("KM Control: //c") || ended,
           "a save did not write the file");
    return !ended;
}

void load(Fuzz_Window& window) {
    ends_as_stated(std::nullopt, [&] { window.controller().settings.load_settings_file(); });
    bool ended = false;
    pass_time(window, Settings_Import_Export::second_part_wait_ms, ended);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    start_application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) {
        return -1;
    }
    const QByteArray input(reinterpret_cast<const char*>(data) + 1,
                           static_cast<qsizetype>(size) - 1);
    const std::string report = text_of_chunk(input);
    Fuzz_Window& window = window_of_model(data[0]);
    window.start_again(Link_Method::serial);
    apply(window, report);
    if (save(window, report)) {
        load(window);
    }
    return 0;
}
