// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// The frames that the tool sends to an adapter's UDP port 1901, as hexadecimal text.
///
/// Byte 0 is 0xFF; byte 1 the length, from byte 2 up to but not including the checksum; byte 2 the
/// command; the data follow; the last byte is the checksum. All frames are broadcast, and the MAC
/// address inside selects the adapter. The layouts and the fixed bytes are the adapter maker's.

/// The adapter and the login: the fields that login, apply and configuration frame share.
struct Adapter_Login {
    QString mac_hex;  ///< 12 digits; empty while the adapter is not known, which shortens the frame
    QString username; ///< as the adapter knows it now, 6 bytes at most
    QString password; ///< as the adapter knows it now, 6 bytes at most
};

/// What a configuration frame writes.
struct Adapter_Settings {
    QString ip_allocation; ///< "00" for DHCP, "80" for Static
    QString static_ip;     ///< dotted
    QString gateway;       ///< dotted
    QString subnet_mask;   ///< dotted
    QString name_hex;      ///< 32 digits
    QString new_username;
    QString new_password;
};

/// The 4 bytes that ask every adapter of the network to answer (command 0x01).
[[nodiscard]] QByteArray search_frame();

/// 22 bytes (command 0x03). The adapter answers with its configuration or refuses.
[[nodiscard]] QString compose_login_frame(const Adapter_Login& login);

/// 22 bytes (command 0x04), with the layout of a login. It makes the adapter use the configuration
/// frame that was sent before.
[[nodiscard]] QString compose_apply_frame(const Adapter_Login& login);

/// 89 bytes (command 0x05): the adapter's whole configuration. Addresses are sent last octet first.
/// A name with multi-byte characters makes the frame longer, while its length byte stays 0x56.
/// @throws std::out_of_range when an address is not a dotted address of at least three octets.
[[nodiscard]] QString compose_config_frame(const Adapter_Login& login,
                                           const Adapter_Settings& settings);

/// The sum modulo 256 of all bytes after the first one, as two digits.
[[nodiscard]] QString frame_checksum(const QString& frame_hex);
