// The conversions between numbers, addresses, hexadecimal digits, commands and free text.
// Input: a byte that is a width or an offset, then the text.

#include "link/audio_state.h"
#include "link/command_encoding.h"
#include "link/custom_setting.h"
#include "link/report_values.h"
#include "link/vocabulary.h"
#include "tests/fuzz/stated_ends.h"
#include "usr/adapter_answers.h"
#include "usr/adapter_frames.h"
#include "usr/dotted_shape.h"
#include "usr/hex_text.h"
#include "windows/grid.h"

#include <algorithm>
#include <stdexcept>

namespace {

std::optional<Stated_End> out_of_range_if(bool holds, const char* text) {
    return holds ? std::optional(Stated_End{&typeid(std::out_of_range), text}) : std::nullopt;
}

constexpr const char* field_missing = "the text ends before the field begins";

void check_hex(const QString& text, qsizetype width) {
    const QString hex = text_to_hex(text);
    expect(hex_to_bytes(hex) == text.toUtf8(), "hex_to_bytes() does not undo text_to_hex()");
    expect(hex_to_text(hex) == QString::fromUtf8(text.toUtf8()),
           "hex_to_text() does not undo text_to_hex()");
    expect(text_to_hex_field(text, width).size() == std::max(hex.size(), width),
           "a field has another width");
    expect(hex.startsWith(cut_at_zero_byte(hex)), "what stands before a zero byte is no beginning");
    // Digits of a device are no digits at times.
    expect(hex_to_bytes(text).size() == (text.size() + 1) / 2, "hex_to_bytes() lost a byte");
    static_cast<void>(hex_to_text(text));
    static_cast<void>(cut_at_zero_byte(text));
    expect(frame_checksum(text).size() == 2, "a checksum is not one byte");
}

void check_addresses(const QString& text) {
    constexpr qsizetype address_digits = 8;
    constexpr qsizetype three_octets = 6;
    const QString hex = dotted_to_hex(text);
    expect(hex.size() % 2 == 0, "half a byte in an address");
    if (has_dotted_shape(text) && !hex.isEmpty()) {
        expect(hex.size() == address_digits, "an address of four octets has not four bytes");
        expect(reverse_hex_bytes(reverse_hex_bytes(hex)) == hex, "an address turned twice differs");
        expect(dotted_to_hex(hex_to_dotted(hex)) == hex, "an address does not come back");
    }
    expect(hex_to_dotted(text).isEmpty() == (text.size() != address_digits),
           "hex_to_dotted() does not go by the length");
    ends_as_stated(out_of_range_if(text.size() < three_octets, field_missing),
                   [&] { static_cast<void>(reverse_hex_bytes(text)); });
}

void check_fields(const QString& text, qsizetype offset) {
    ends_as_stated(out_of_range_if(text.size() < offset, field_missing), [&] {
        expect(cut_field(text, {offset, search_reply::name.digits}).size() <=
                   search_reply::name.digits,
               "a field is longer than it can be");
    });
    ends_as_stated(out_of_range_if(text.size() < search_reply::name.first_digit, field_missing),
                   [&] { static_cast<void>(get_name_from_reply(text)); });
    const QString allocation = read_ip_allocation(text.toStdString());
    expect(allocation == "00" || allocation == "80", "an IP allocation that does not exist");
}

void check_frames(const QString& text) {
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

void check_commands(const std::string& text) {
    const Command_Encoder encoder([](const std::string& failure) { report_finding(failure); });
    std::string command = text;
    expect(encoder.string_to_bytes(command).toStdString() == text + '\r',
           "a command is sent as another");
    QString wide = QString::fromStdString(text);
    const QByteArray narrow = wide.toUtf8();
    expect(encoder.qstring_to_bytes(wide) == narrow + '\r', "a command is sent as another");
    expect(vocabulary::submitted_custom_setting("C1", text, text, text).size() <= 99,
           "a custom entry is longer than the unit's line");
    expect(vocabulary::filed_custom_setting(1, text, text, text).size() <= 49,
           "a custom entry is longer than the unit's line");
}

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
    // Without any channel the file holds a command, which reads as no channel.
    expect(read_audio_state(filed).state == state, "an audio state does not come back");
    expect(audio_command(state).startsWith("//a "), "another audio command");
}

/// Numbers of a file and of a report: nothing but the conversion's own two exceptions may come.
template <class Step>
void with_number_failures(const Step& step) {
    try {
        step();
    } catch (const std::logic_error& failure) {
        const bool is_known = typeid(failure) == typeid(std::invalid_argument) ||
                              typeid(failure) == typeid(std::out_of_range);
        expect(is_known && std::string_view(failure.what()) == "stoi", "another exception");
    }
}

void check_grid(const std::string& text) {
    with_number_failures([&] {
        const Layout_Item item = parse_coordinates("Coordinates channel 1: ", text);
        if (is_on_grid(item)) {
            expect(coordinates_text(item).size() == 3, "another text of a cell");
        }
    });
    with_number_failures([&] {
        const Layout_Item item = position_to_layout_item(text.substr(0, 2));
        if (is_on_grid(item)) {
            const std::string number = grid_position_number(item).toStdString();
            const Layout_Item again = position_to_layout_item(number);
            expect(again.row == item.row && again.column == item.column,
                   "a cell does not come back");
        }
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) {
        return -1;
    }
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const QString wide = QString::fromStdString(text);
    check_hex(wide, data[0]);
    check_addresses(wide);
    check_fields(wide, data[0]);
    check_frames(wide);
    check_commands(text);
    check_reply_values(text, data[0]);
    check_audio(text);
    check_grid(text);
    return 0;
}
