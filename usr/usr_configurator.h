// SPDX-License-Identifier: MIT

#pragma once

#include "usr/usr_searcher.h"

#include <QString>
#include <QUdpSocket>

#include <string>

struct Adapter_Login;
struct Hex_Field;

/// One conversation with one adapter: reads and writes its settings by broadcast frames that carry
/// its MAC address. Every operation begins with a search for that address, blocks the calling
/// thread and shows its own failures; one that went wrong gives -1, "-1" or empty text.
class USR_configurator : public USR_searcher {
public:
    /// For reading.
    /// @param target_ip dotted address of the adapter.
    USR_configurator(const QString& target_ip, const QString& username, const QString& password);

    /// For writing.
    /// @param static_ip, subnet_mask, gateway dotted addresses to be written; not checked here.
    /// @param ip_allocation "00" for DHCP, "80" for Static.
    USR_configurator(const QString& target_ip, const QString& static_ip, const QString& subnet_mask,
                     const QString& gateway, const QString& ip_allocation, const QString& username,
                     const QString& password);

    /// Searches, and takes over MAC address and name from the last reply that names the adapter's
    /// address. Without such a reply these keep what they held.
    /// @throws int -1 after showing "Error in getting data from the USR".
    void get_data_from_USR();

    /// Asks the adapter for its configuration, at most 100 times, two seconds or more each.
    /// @return "-1" when the first attempt was refused ("Bad credentials"); otherwise "1", also
    ///         when no attempt was answered or a later one was refused.
    QString login_to_USR();

    /// "00" for DHCP or "80" for Static; logs in unless an answer is at hand. "-1" when the login
    /// was refused, or after a failure ("Get ip allocation error").
    QString get_ip_allocation();

    /// Dotted, from the answer to the login; logs in unless an answer is at hand. "-1" after a
    /// failure ("Get static IP error", "Get subnet mask error", "Get gateway error"), which an
    /// answer that ends before the field is as well.
    QString get_static_ip();
    QString get_subnet_mask();
    QString get_gateway();

    /// The adapter's name; logs in first if the last search found nothing.
    QString get_usr_name();

    /// Sends the configuration and has it taken into use. The adapter confirms nothing.
    /// @return 1 when both frames were handed to the socket; -1 after a failure, to which an
    ///         address that can't be written belongs ("Error in the setup of USR").
    int setup_USR();

    /// Writes new credentials and a new name along with the settings given at construction.
    /// @param new_username, new_password 6 characters at most; longer ones give -1 at once.
    /// @param new_name 16 characters at most, likewise.
    /// @return 1 or -1, as setup_USR(). After a failure the old values stay in force.
    int change_credentials_and_name(const QString& new_username, const QString& new_password,
                                    const QString& new_name);

    /// Searches, and finds the adapter by its MAC address, whatever its address is now.
    /// @return its dotted address; empty when it did not answer, or after a failure ("Get IP after
    ///         hanging error").
    QString get_IP_after_hanging();

    /// The frames as hexadecimal text, from the values at hand (adapter_frames.h tells the
    /// layouts).
    [[nodiscard]] QString make_login_frame() const;
    [[nodiscard]] QString make_apply_frame() const;
    /// Carries the replacement name once after change_credentials_and_name() has set it.
    QString make_config_frame();

private:
    [[nodiscard]] Adapter_Login login_data() const;
    void take_data_from_replies();
    void bind_config_socket();
    void send_frame(const QString& frame_hex);
    void close_config_socket_if_connected();
    std::string read_pending_datagrams();
    void attempt_login();
    QString cut_from_answer(const Hex_Field& field);

    QString target_ip;
    QString static_ip;
    QString subnet_mask;
    QString gateway;
    QString reply_ip_hex;  ///< the last address cut out of a reply, 8 digits
    QString mac_hex;       ///< 12 digits
    QString ip_allocation; ///< "00" or "80"
    QString usr_name;
    QString usr_name_hex; ///< as in the reply, 32 digits
    QString new_name_hex; ///< 32 digits
    QString username;     ///< as the adapter knows it now
    QString password;     ///< as the adapter knows it now
    QString new_username;
    QString new_password;
    bool name_changed = false; ///< the next configuration frame carries new_name_hex
    int login_attempts = 0;
    std::string config_hex; ///< the answer to the login; empty means not logged in yet
    QUdpSocket config_socket;
};
