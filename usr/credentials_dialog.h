// SPDX-License-Identifier: MIT

#pragma once

#include "usr/wizard_dialog.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace Ui {
class Credentials_Dialog;
}

/// Asks for an adapter's user name and password and checks them by reading the adapter's IP
/// allocation. A refused login ends the dialog as well; the wizard then creates a new one.
class Credentials_Dialog : public Wizard_Dialog {
    Q_OBJECT

public:
    /// @param current_ip dotted address of the adapter.
    Credentials_Dialog(const QString& current_ip, const QStringList& replies,
                       QWidget* parent = nullptr);
    ~Credentials_Dialog() override;

    /// "00" for DHCP, "80" for Static, "-1" after a refused login or a failure; empty if there was
    /// no login.
    [[nodiscard]] QString get_ip_allocation() const { return ip_allocation; }
    [[nodiscard]] QString get_username() const;
    [[nodiscard]] QString get_password() const;

private slots:
    /// Logs in and hides the dialog; the thread is blocked for two seconds or more.
    void on_pushButton_ip_allocation_clicked();

private:
    [[nodiscard]] bool check_credentials() const;

    QString current_ip;
    QString ip_allocation;
    QStringList replies;
    std::unique_ptr<Ui::Credentials_Dialog> ui;
};
