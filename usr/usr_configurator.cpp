// SPDX-License-Identifier: MIT

#include "usr/usr_configurator.h"

#include "app/busy_cursor.h"
#include "app/message_box.h"
#include "usr/adapter_frames.h"
#include "usr/adapter_limits.h"
#include "usr/adapter_replies.h"
#include "usr/hex_text.h"
#include "usr/ip_allocation.h"
#include "usr/usr_log.h"
#include "usr/waiting.h"

#include <QByteArray>
#include <QMessageBox>

#include <utility>

namespace {

constexpr unsigned long wait_for_login_answer_ms = 500;
constexpr int max_login_attempts = 100;

constexpr qsizetype name_digits = 2 * max_name_characters;

// More than an adapter ever sends: a flood ends here instead of holding the thread.
constexpr int max_datagrams = 10'000;

// Thrown when the search for the adapter failed, so that the caller's own handler fires as well.
constexpr int no_data_from_usr = -1;

const QString refused = text_of(IP_Allocation::refused);

} // namespace

USR_configurator::USR_configurator(const QString& given_target_ip, const QString& given_username,
                                   const QString& given_password)
    : target_ip(given_target_ip),
      username(given_username),
      password(given_password),
      new_username(given_username),
      new_password(given_password) {}

USR_configurator::USR_configurator(const QString& given_target_ip, const QString& given_static_ip,
                                   const QString& given_subnet_mask, const QString& given_gateway,
                                   const QString& given_ip_allocation,
                                   const QString& given_username, const QString& given_password)
    : target_ip(given_target_ip),
      static_ip(given_static_ip),
      subnet_mask(given_subnet_mask),
      gateway(given_gateway),
      ip_allocation(given_ip_allocation),
      username(given_username),
      password(given_password),
      new_username(given_username),
      new_password(given_password) {}

void USR_configurator::get_data_from_USR() {
    const auto search = [this] {
        search_USR_in_network();
        take_data_from_replies();
        return true;
    };
    if (!report_exceptions("Error in getting data from the USR", search, false)) {
        throw no_data_from_usr;
    }
}

void USR_configurator::take_data_from_replies() {
    for (const QString& reply : std::as_const(USR_replies)) {
        const QString ip_hex = cut_field(reply, search_reply::ip);
        if (hex_to_dotted(ip_hex) != target_ip) {
            continue;
        }
        reply_ip_hex = ip_hex;
        mac_hex = cut_field(reply, search_reply::mac);
        usr_name_hex = cut_field(reply, search_reply::name);
        usr_name = get_name_from_reply(reply);
    }
}

QString USR_configurator::login_to_USR() {
    attempt_login();
    if (config_hex.size() == login_answer::refusal_digits) {
        show_information_box("Bad credentials", QMessageBox::Warning);
        return refused;
    }
    // Only the first refusal counts: a later one shows its box and is not told to the caller.
    if (config_hex.size() != login_answer::configuration_digits &&
        login_attempts < max_login_attempts) {
        login_to_USR();
    }
    login_attempts = 0;
    return "1";
}

void USR_configurator::attempt_login() {
    get_data_from_USR();
    const Busy_Cursor busy;
    bind_config_socket();
    send_frame(make_login_frame());
    block_for_milliseconds(wait_for_login_answer_ms);
    config_hex = read_pending_datagrams();
    close_config_socket_if_connected();
    ++login_attempts;
    qCDebug(usr_log) << "login attempt" << login_attempts << "answered with" << config_hex.size()
                     << "digits";
}

std::string USR_configurator::read_pending_datagrams() {
    const qint64 first_size = config_socket.pendingDatagramSize();
    if (first_size < 0) {
        return {};
    }
    std::string hex;
    QByteArray buffer(first_size, '\0');
    for (int count = 0; count < max_datagrams && config_socket.hasPendingDatagrams(); ++count) {
        config_socket.readDatagram(buffer.data(), buffer.size());
        // Beyond an answer's length nobody looks at the text.
        if (hex.size() <= login_answer::configuration_digits) {
            hex += buffer.toHex().toStdString();
        }
    }
    return hex;
}

QString USR_configurator::get_ip_allocation() {
    const auto read = [this]() -> QString {
        ip_allocation.clear();
        if (config_hex.empty() && login_to_USR() == refused) {
            return refused;
        }
        ip_allocation = read_ip_allocation(config_hex);
        return ip_allocation;
    };
    return report_exceptions("Get ip allocation error", read, refused);
}

QString USR_configurator::get_static_ip() {
    const auto read = [this] {
        reply_ip_hex = cut_from_answer(login_answer::static_ip);
        static_ip = hex_to_dotted(reverse_hex_bytes(reply_ip_hex));
        return static_ip;
    };
    return report_exceptions("Get static IP error", read, refused);
}

QString USR_configurator::get_subnet_mask() {
    const auto read = [this] {
        const QString address_hex = cut_from_answer(login_answer::subnet_mask);
        subnet_mask = hex_to_dotted(reverse_hex_bytes(address_hex));
        return subnet_mask;
    };
    return report_exceptions("Get subnet mask error", read, refused);
}

QString USR_configurator::get_gateway() {
    const auto read = [this] {
        const QString address_hex = cut_from_answer(login_answer::gateway);
        gateway = hex_to_dotted(reverse_hex_bytes(address_hex));
        return gateway;
    };
    return report_exceptions("Get gateway error", read, refused);
}

QString USR_configurator::cut_from_answer(const Hex_Field& field) {
    if (config_hex.empty()) {
        login_to_USR();
    }
    return cut_field(QString::fromStdString(config_hex), field);
}

QString USR_configurator::get_usr_name() {
    if (USR_replies.isEmpty()) {
        try {
            login_to_USR();
        } catch (int) {
            // A failed search has been shown already; the name stays what it was.
        }
    }
    return usr_name;
}

int USR_configurator::setup_USR() {
    const auto send = [this] {
        get_data_from_USR();
        bind_config_socket();
        const QString config_frame = make_config_frame();
        const QString apply_frame = make_apply_frame();
        send_frame(config_frame);
        send_frame(apply_frame);
        close_config_socket_if_connected();
        return 1;
    };
    return report_exceptions("Error in the setup of USR", send, -1);
}

int USR_configurator::change_credentials_and_name(const QString& wanted_username,
                                                  const QString& wanted_password,
                                                  const QString& wanted_name) {
    if (wanted_username.size() > max_credential_characters ||
        wanted_password.size() > max_credential_characters ||
        wanted_name.size() > max_name_characters) {
        return -1;
    }
    const auto change = [&] {
        new_username = wanted_username;
        new_password = wanted_password;
        new_name_hex = text_to_hex_field(wanted_name, name_digits);
        name_changed = true;
        if (setup_USR() != 1) {
            new_username = username;
            new_password = password;
            new_name_hex = usr_name_hex;
            return -1;
        }
        username = new_username;
        password = new_password;
        usr_name_hex = new_name_hex;
        return 1;
    };
    return report_exceptions("Error changing username, password and name of USR", change, -1);
}

QString USR_configurator::get_IP_after_hanging() {
    const auto search = [this]() -> QString {
        search_USR_in_network();
        for (const QString& reply : std::as_const(USR_replies)) {
            if (cut_field(reply, search_reply::mac) == mac_hex) {
                return hex_to_dotted(cut_field(reply, search_reply::ip));
            }
        }
        return {};
    };
    return report_exceptions("Get IP after hanging error", search, QString());
}

Adapter_Login USR_configurator::login_data() const { return {mac_hex, username, password}; }

QString USR_configurator::make_login_frame() const { return compose_login_frame(login_data()); }

QString USR_configurator::make_apply_frame() const { return compose_apply_frame(login_data()); }

QString USR_configurator::make_config_frame() {
    const QString name_hex = name_changed ? new_name_hex : usr_name_hex;
    QString frame =
        compose_config_frame(login_data(), {ip_allocation, static_ip, gateway, subnet_mask,
                                            name_hex, new_username, new_password});
    name_changed = false;
    return frame;
}

void USR_configurator::bind_config_socket() {
    if (config_socket.state() != QAbstractSocket::BoundState) {
        config_socket.bind(0);
    }
}

void USR_configurator::send_frame(const QString& frame_hex) {
    const QByteArray frame = hex_to_bytes(frame_hex);
    const qint64 sent = config_socket.writeDatagram(frame, QHostAddress::Broadcast, adapter_port);
    qCDebug(usr_log) << "frame" << frame_hex.mid(4, 2) << "of" << frame.size() << "bytes, sent"
                     << sent;
    if (sent < 0) {
        qCDebug(usr_log) << "the frame was not sent:" << config_socket.errorString();
    }
}

void USR_configurator::close_config_socket_if_connected() {
    if (config_socket.state() == QAbstractSocket::ConnectedState) {
        config_socket.close();
    }
}
