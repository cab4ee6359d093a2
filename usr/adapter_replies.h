// SPDX-License-Identifier: MIT

#pragma once

#include "usr/hex_text.h"

#include <QString>

#include <string>

/// The positions of the fields in an adapter's two answers, in hexadecimal digits of the datagram.
/// The positions are the adapter maker's; bytes that are not named here are not read.

/// The answer to a search: 36 bytes.
namespace search_reply {
constexpr qsizetype bytes = 36;
constexpr qsizetype digits = 2 * bytes;
constexpr Hex_Field ip{10, 8};    ///< IPv4 address, first octet first
constexpr Hex_Field mac{18, 12};  ///< MAC address
constexpr Hex_Field name{38, 32}; ///< name, padded with zero bytes
} // namespace search_reply

/// The answer to a login: 4 bytes for a refusal, or 260 bytes of configuration.
namespace login_answer {
constexpr qsizetype refusal_digits = 8;
constexpr qsizetype configuration_digits = 520;
constexpr Hex_Field ip_allocation{6, 2}; ///< "40" means DHCP, all else Static
constexpr Hex_Field static_ip{18, 8};    ///< last octet first, as the two below
constexpr Hex_Field gateway{26, 8};
constexpr Hex_Field subnet_mask{34, 8};
} // namespace login_answer

/// The name in a search reply, read as UTF-8 up to its first zero byte.
/// @throws std::out_of_range for a reply of fewer than 38 digits.
[[nodiscard]] QString get_name_from_reply(const QString& reply_hex);

/// "00" when a login's answer says DHCP, else "80"; also "80" for an answer too short to tell.
/// These are the values to be written: the adapter sends 0x40 for DHCP, but expects 0x00.
[[nodiscard]] QString read_ip_allocation(const std::string& answer_hex);
