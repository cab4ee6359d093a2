// SPDX-License-Identifier: MIT

#include "usr/adapter_replies.h"

#include "usr/ip_allocation.h"

QString get_name_from_reply(const QString& reply_hex) {
    return hex_to_text(cut_at_zero_byte(cut_field(reply_hex, search_reply::name)));
}

QString read_ip_allocation(const std::string& answer_hex) {
    constexpr auto first = static_cast<std::size_t>(login_answer::ip_allocation.first_digit);
    constexpr auto count = static_cast<std::size_t>(login_answer::ip_allocation.digits);
    const bool is_told = answer_hex.size() >= first + count;
    const bool is_dhcp = is_told && answer_hex.compare(first, count, "40") == 0;
    return text_of(is_dhcp ? IP_Allocation::dhcp : IP_Allocation::static_address);
}
