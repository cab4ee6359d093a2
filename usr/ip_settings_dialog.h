// SPDX-License-Identifier: MIT

#pragma once

#include "usr/wizard_dialog.h"

#include <QString>

#include <memory>

class QMessageBox;
class USR_configurator;

namespace Ui {
class IP_Settings_Dialog;
}

/// Shows how an adapter gets its address, lets the user change that, and ends the wizard with
/// Connect. After a change the adapter restarts and may return with a new address. The dialog waits
/// a fixed time and then finds the adapter by its MAC address.
///
/// The object exists longer than it is shown: the main window keeps it for the values that it read.
class IP_Settings_Dialog : public Wizard_Dialog {
    Q_OBJECT

public:
    /// Logs in and reads the settings before the dialog is shown; a failed read leaves "-1".
    /// @param current_ip dotted address of the adapter.
    /// @param ip_allocation "80" for Static; anything else means DHCP.
    IP_Settings_Dialog(const QString& current_ip, const QString& username, const QString& password,
                       const QString& ip_allocation, QWidget* parent = nullptr);
    ~IP_Settings_Dialog() override;

    /// The adapter's current address; empty if it did not return after a change.
    [[nodiscard]] QString get_current_ip() const { return current_ip; }
    [[nodiscard]] QString get_ip_allocation() const { return ip_allocation; }
    [[nodiscard]] QString get_username() const { return username; }
    [[nodiscard]] QString get_password() const { return password; }
    [[nodiscard]] QString get_static_ip() const { return static_ip; }
    [[nodiscard]] QString get_subnet_mask() const { return subnet_mask; }
    [[nodiscard]] QString get_gateway() const { return gateway; }
    [[nodiscard]] QString get_usr_name() const { return usr_name; }

    void set_username(const QString& text) { username = text; }
    void set_password(const QString& text) { password = text; }
    void set_usr_name(const QString& text) { usr_name = text; }

public slots:
    /// Shows "Please wait for changes to be made" next to the dialog and returns at once.
    void showMessage_for_waiting();

private slots:
    void on_pushButton_Apply_IP_clicked();
    void on_radioButton_DHCP_clicked();
    void on_radioButton_Static_clicked();
    void on_pushButton_Connect_clicked();

    // Called by timers.
    void apply_IP();
    void search_USR_in_network_after_changing();

private:
    void load_IP_settings();
    void show_allocation();
    void show_DHCP_state();
    void show_Static_state();
    void set_line_edits_enabled(bool enabled);
    void set_buttons_enabled(bool enabled);
    [[nodiscard]] bool is_IP_allocation_selected() const;
    [[nodiscard]] bool is_valid_ip_text(const QString& text) const;
    [[nodiscard]] bool are_valid_ip_texts() const;
    void end_failed_apply();
    void release_configurator();

    QString current_ip;
    QString static_ip;
    QString subnet_mask;
    QString gateway;
    QString ip_allocation; ///< "00" for DHCP, "80" for Static
    QString username;
    QString password;
    QString usr_name;
    std::unique_ptr<QMessageBox> wait_box;
    std::unique_ptr<USR_configurator> configurator; ///< null between operations
    std::unique_ptr<Ui::IP_Settings_Dialog> ui;
};
