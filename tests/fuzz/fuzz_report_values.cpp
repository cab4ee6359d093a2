// SPDX-License-Identifier: MIT

// Values extracted from a unit's replies. Input: a byte that is an offset, then the text.

#include "link/channels.h"
#include "link/custom_setting.h"
#include "link/report_values.h"
#include "tests/fuzz/out_of_range_end.h"

namespace {

void check_reply_values(const std::string& text, std::size_t offset) {
    expect(read_channel_resolutions("Channels resolution: " + text).size() <= channel_count,
           "more resolutions than channels");
    expect(parse_channels_resolution(text).size() <= channel_count,
           "more resolutions than channels");
    for (const std::string_view key : {"04B", "03B", "02B", "01B"}) {
        const bool is_short = !text.empty() && value_behind(key, text).size() < 2;
        const std::string failure = "no grid position behind " + std::string(key);
        ends_as_stated(out_of_range_if(is_short, failure.c_str()),
                       [&] { static_cast<void>(get_layout_position(key, text)); });
    }
    const QString wide = QString::fromStdString(text);
    ends_as_stated(
        out_of_range_if(wide.size() < 8, "the custom entry is shorter than its columns"), [&] {
            const Custom_Setting setting = read_custom_setting(wide);
            expect(setting.x.size() == 3 && setting.y.size() == 3, "a column of another width");
        });
    if (offset <= text.size()) {
        expect(custom_setting_name(text, offset).find(' ') == std::string::npos,
               "a blank in a name");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) {
        return -1;
    }
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    check_reply_values(text, data[0]);
    return 0;
}
