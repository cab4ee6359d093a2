#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>

#include <memory>

namespace Ui {
class Credentials_Dialog;
}

/// Asks for an adapter's user name and password and proves them by reading the adapter's IP
/// allocation. A refused login ends the dialog as well; the wizard then makes a new one.
class Credentials_Dialog : public QDialog {
    Q_OBJECT

public:
    /// @param current_ip dotted address of the adapter.
    Credentials_Dialog(const QString& current_ip, const QStringList& replies,
                       QWidget* parent = nullptr);
    ~Credentials_Dialog() override;

    /// The window's close button ended the dialog. The Escape key does not count.
    [[nodiscard]] bool is_closed_by_user() const { return closed_by_user; }
    /// "00" for DHCP, "80" for Static, "-1" after a refused login or a failure; empty if there was
    /// no login.
    [[nodiscard]] QString get_ip_allocation() const { return ip_allocation; }
    [[nodiscard]] QString get_username() const;
    [[nodiscard]] QString get_password() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    /// Logs in and hides the dialog; the thread is blocked for two seconds or more.
    void on_pushButton_ip_allocation_clicked();

private:
    [[nodiscard]] bool check_credentials() const;

    bool closed_by_user = false;
    QString current_ip;
    QString ip_allocation;
    QStringList replies;
    std::unique_ptr<Ui::Credentials_Dialog> ui;
};
