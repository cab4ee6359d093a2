// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>

#include <memory>

namespace Ui {
class Change_setting_for_USR_Dialog;
}

/// Changes an adapter's name, user name and password; an empty field keeps its value. One frame
/// contains all settings of the adapter, so the IP settings are written again unchanged.
class Change_setting_for_USR_Dialog : public QDialog {
    Q_OBJECT

public:
    /// All values are the current ones: dotted addresses, "00" or "80" for `ip_allocation`.
    Change_setting_for_USR_Dialog(const QString& current_ip, const QString& static_ip,
                                  const QString& subnet_mask, const QString& gateway,
                                  const QString& ip_allocation, const QString& username,
                                  const QString& password, const QString& usr_name,
                                  QWidget* parent = nullptr);
    ~Change_setting_for_USR_Dialog() override;

    /// The current values; the new ones after they were applied.
    [[nodiscard]] QString get_username() const { return username; }
    [[nodiscard]] QString get_password() const { return password; }
    [[nodiscard]] QString get_usr_name() const { return usr_name; }
    /// Apply passed its checks. Whether the adapter accepted the values is not known.
    [[nodiscard]] bool is_settings_applied() const { return settings_applied; }

private slots:
    /// Sends the settings and hides the dialog; the thread is blocked for 1.5 seconds or more.
    void on_pushButton_Apply_clicked();

private:
    bool check_fields();
    [[nodiscard]] const char* find_error() const;

    QString current_ip;
    QString static_ip;
    QString subnet_mask;
    QString gateway;
    QString ip_allocation;
    QString username;
    QString password;
    QString new_username;
    QString new_password;
    QString usr_name;
    QString new_usr_name;
    bool settings_applied = false;
    std::unique_ptr<Ui::Change_setting_for_USR_Dialog> ui;
};
