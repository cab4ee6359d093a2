// SPDX-License-Identifier: MIT

#include "tests/support/fake_waiting.h"
#include "tests/support/fast_network.h"
#include "tests/support/private_network.h"
#include "tests/usr/ip_dialog_widgets.h"
#include "usr/change_setting_for_usr_dialog.h"
#include "usr/credentials_dialog.h"
#include "usr/select_connection_method_dialog.h"
#include "usr/select_hardware_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QTextStream>

/// Writes a picture of each dialog of the wizard, filled by a simulated adapter, into the folder
/// that its one argument names.

namespace {

void save(QWidget& widget, const QString& folder, const QString& name) {
    widget.show();
    QApplication::processEvents();
    const QString path = folder + '/' + name + ".png";
    QTextStream(stdout) << (widget.grab().save(path) ? path : "not written: " + path) << Qt::endl;
}

void save_all(const QString& folder) {
    Fast_Network network;
    network.add_adapter();
    Adapter_State odd = Adapter_Network::numbered({}, 1);
    odd.name = "<b>W</b> & SOUTH";
    network.add(odd);

    Select_connection_method_Dialog method;
    save(method, folder, "connection_method");
    Select_hardware_Dialog hardware;
    find_child<QComboBox>(hardware, "comboBox").setCurrentIndex(1);
    save(hardware, folder, "hardware");
    Credentials_Dialog credentials("127.0.0.2", {});
    find_child<QLineEdit>(credentials, "lineEdit_username").setText("admin");
    find_child<QLineEdit>(credentials, "lineEdit_password").setText("admin");
    save(credentials, folder, "credentials");
    IP_Settings_Dialog dhcp("127.0.0.2", "admin", "admin", "00");
    save(dhcp, folder, "ip_settings_dhcp");
    IP_Settings_Dialog fixed("127.0.0.2", "admin", "admin", "80");
    Ip_Dialog_Widgets(fixed).address.setText("192.168.100.200");
    save(fixed, folder, "ip_settings_static");
    Ip_Dialog_Widgets(fixed).apply.click();
    save(fixed, folder, "ip_settings_applying");
    save(*waiting_box(), folder, "waiting_box");
    Change_setting_for_USR_Dialog admin("127.0.0.2", "127.0.0.2", "255.0.0.0", "127.0.0.1", "80",
                                        "admin", "admin", "OSTREL");
    find_child<QLineEdit>(admin, "lineEdit_Name").setText("WEST WING");
    find_child<QLineEdit>(admin, "lineEdit_Password").setText("geheim");
    save(admin, folder, "admin_settings");
}

} // namespace

int main(int argc, char** argv) {
    return run_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        save_all(QApplication::arguments().value(1, "."));
        return 0;
    });
}
