// SPDX-License-Identifier: MIT

// Values of a settings file's lines.
// Input: the text.

#include "pages/setting_values.h"
#include "tests/fuzz/stated_ends.h"

#include <stdexcept>

namespace {

std::string value_or_zero(std::string_view key, const std::string& text) {
    const std::string value = value_behind(key, text);
    return value.empty() ? "0" : value;
}

void check_channel(const std::string& text) {
    for (const std::string_view command : {"//c", "//u"}) {
        const std::string value = value_or_zero(command, text);
        const std::optional<std::string> channel = filed_channel(command, text);
        expect(channel.has_value() == (value != "0"), "a channel where none is");
        expect(!channel || *channel == value, "another channel");
    }
}

void check_port_limit(const std::string& text) {
    std::optional<std::int64_t> limit;
    try {
        limit = filed_port_limit(text);
    } catch (const std::logic_error& failure) {
        expect(std::string_view(failure.what()) == "stoi", "another exception");
    }
    expect(!value_behind("//D", text).empty() || limit == 0, "a missing limit is not 0");
}

void check_parking(const std::string& text) {
    const Filed_Parking parking = filed_parking(text);
    expect(!parking.x.empty() && parking.x.find_first_of(" \n") == std::string::npos,
           "a blank in x");
    expect(parking.y == value_or_zero("//MP " + parking.x, text), "another y");
}

void check_resolution(const std::string& text) {
    for (int channel = 1; channel <= 4; ++channel) {
        const std::string key = "//CE " + std::to_string(channel) + ' ';
        expect(filed_resolution(channel, text) == value_or_zero(key, text), "another resolution");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    check_channel(text);
    check_port_limit(text);
    check_parking(text);
    check_resolution(text);
    return 0;
}
