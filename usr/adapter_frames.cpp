// SPDX-License-Identifier: MIT

#include "usr/adapter_frames.h"

#include "usr/hex_text.h"

namespace {

// 0xFF, length, command.
constexpr const char* search_start = "ff0101";
constexpr const char* login_start = "ff1303";
constexpr const char* apply_start = "ff1304";
constexpr const char* config_start = "ff5605";

// Sent unchanged, whatever the adapter's settings were; only the maker knows their meaning.
constexpr const char* before_allocation = "093803";
constexpr const char* after_allocation = "2019500002";
constexpr const char* after_new_password = "02010000";
constexpr const char* after_second_mac = "100e000001000000";

// User name and password have 6 bytes each in every frame.
constexpr qsizetype credential_digits = 12;

QString with_checksum(const QString& frame_hex) { return frame_hex + frame_checksum(frame_hex); }

QString credential_field(const QString& text) { return text_to_hex_field(text, credential_digits); }

QString login_fields(const Adapter_Login& login) {
    return login.mac_hex + credential_field(login.username) + credential_field(login.password);
}

QString address_field(const QString& dotted) { return reverse_hex_bytes(dotted_to_hex(dotted)); }

} // namespace

QByteArray search_frame() { return hex_to_bytes(with_checksum(search_start)); }

QString compose_login_frame(const Adapter_Login& login) {
    return with_checksum(login_start + login_fields(login));
}

QString compose_apply_frame(const Adapter_Login& login) {
    return with_checksum(apply_start + login_fields(login));
}

QString compose_config_frame(const Adapter_Login& login, const Adapter_Settings& settings) {
    QString frame = config_start + login_fields(login);
    frame += before_allocation + settings.ip_allocation + after_allocation;
    frame += address_field(settings.static_ip);
    frame += address_field(settings.gateway);
    frame += address_field(settings.subnet_mask);
    frame += settings.name_hex;
    frame += credential_field(settings.new_username) + credential_field(settings.new_password);
    frame += after_new_password + login.mac_hex + after_second_mac;
    return with_checksum(frame);
}

QString frame_checksum(const QString& frame_hex) {
    unsigned char sum = 0;
    const QByteArray counted_bytes = hex_to_bytes(frame_hex.mid(2));
    for (const char byte : counted_bytes) {
        sum = static_cast<unsigned char>(sum + static_cast<unsigned char>(byte));
    }
    return QString::fromLatin1(QByteArray(1, static_cast<char>(sum)).toHex());
}
