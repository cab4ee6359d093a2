// SPDX-License-Identifier: MIT

// Hexadecimal digits, dotted addresses and fields of an answer, both ways.
// Input: a byte that is a width or an offset, then the text.

#include "tests/fuzz/out_of_range_end.h"
#include "usr/adapter_frames.h"
#include "usr/adapter_replies.h"
#include "usr/dotted_shape.h"
#include "usr/hex_text.h"

#include <algorithm>

namespace {

void check_hex(const QString& text, qsizetype width) {
    const QString hex = text_to_hex(text);
    expect(hex_to_bytes(hex) == text.toUtf8(), "hex_to_bytes() does not undo text_to_hex()");
    expect(hex_to_text(hex) == QString::fromUtf8(text.toUtf8()),
           "hex_to_text() does not undo text_to_hex()");
    expect(text_to_hex_field(text, width).size() == std::max(hex.size(), width),
           "a field has another width");
    expect(hex.startsWith(cut_at_zero_byte(hex)), "what stands before a zero byte is no beginning");
    // The digits from a device may be other characters.
    expect(hex_to_bytes(text).size() == (text.size() + 1) / 2, "hex_to_bytes() lost a byte");
    static_cast<void>(hex_to_text(text));
    static_cast<void>(cut_at_zero_byte(text));
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
    return 0;
}
