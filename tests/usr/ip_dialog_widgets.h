// SPDX-License-Identifier: MIT

#pragma once

#include "app/message_box.h"
#include "tests/support/find_child.h"
#include "usr/ip_settings_dialog.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

inline constexpr const char* ip_settings_class = "IP_Settings_Dialog";

/// The widgets of an IP_Settings_Dialog, by name.
struct Ip_Dialog_Widgets {
    explicit Ip_Dialog_Widgets(const IP_Settings_Dialog& dialog)
        : label(find_child<QLabel>(dialog, "label_IP")),
          dhcp(find_child<QRadioButton>(dialog, "radioButton_DHCP")),
          fixed(find_child<QRadioButton>(dialog, "radioButton_Static")),
          address(find_child<QLineEdit>(dialog, "lineEdit_IPv4_Address")),
          mask(find_child<QLineEdit>(dialog, "lineEdit_Subnet_Mask")),
          gateway(find_child<QLineEdit>(dialog, "lineEdit_Default_Gateway")),
          apply(find_child<QPushButton>(dialog, "pushButton_Apply_IP")),
          connect(find_child<QPushButton>(dialog, "pushButton_Connect")) {}

    [[nodiscard]] QStringList texts() const {
        return {address.text(), mask.text(), gateway.text()};
    }
    [[nodiscard]] QList<bool> edits_enabled() const {
        return {address.isEnabled(), mask.isEnabled(), gateway.isEnabled()};
    }
    /// Apply IP, Connect, DHCP, Static.
    [[nodiscard]] QList<bool> buttons_enabled() const {
        return {apply.isEnabled(), connect.isEnabled(), dhcp.isEnabled(), fixed.isEnabled()};
    }

    QLabel& label;
    QRadioButton& dhcp;
    QRadioButton& fixed;
    QLineEdit& address;
    QLineEdit& mask;
    QLineEdit& gateway;
    QPushButton& apply;
    QPushButton& connect;
};

/// The visible box that asks to wait; null while there is none.
inline QMessageBox* waiting_box() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* box = qobject_cast<QMessageBox*>(window);
        if (box && box->isVisible() && box->text() == "Please wait for changes to be made") {
            return box;
        }
    }
    return nullptr;
}
