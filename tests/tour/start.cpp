// SPDX-License-Identifier: MIT

#include "tests/tour/start.h"

void pick_model(Tour_Driver& driver, const QString& radio_button) {
    driver.click(radio_button);
    driver.see_shown(radio_button, "checked");
    driver.take_picture("model");
    driver.report_step("model picked: " + radio_button.section('_', 1));
    driver.click("pushButton_Continue");
}

void take_serial_path(Tour_Driver& driver) {
    driver.click("radioButton_RS232");
    driver.see_shown("radioButton_RS232", "checked");
    driver.take_picture("method");
    driver.report_step("connection method picked: RS232");
    driver.click("pushButton_continue");
}

void take_network_path(Tour_Driver& driver, const QString& address) {
    driver.click("radioButton_TCP_IP");
    driver.see_shown("radioButton_TCP_IP", "checked");
    driver.take_picture("method");
    driver.click("pushButton_continue");

    driver.choose("comboBox", address + "   ADAPTER");
    driver.take_picture("hardware");
    driver.report_step("adapters found by broadcast, picked: " + driver.shown("comboBox"));
    driver.click("pushButton_Continue");

    driver.see_shown("label_current_ip", address);
    driver.type("lineEdit_username", "admin");
    driver.type("lineEdit_password", "admin");
    driver.take_picture("login");
    driver.click("pushButton_ip_allocation");

    driver.see_shown("label_IP", address);
    driver.see_shown("radioButton_DHCP", "checked");
    driver.see_shown("lineEdit_IPv4_Address", address);
    driver.take_picture("ip-settings");
    driver.report_step("logged in, the adapter's settings read: address " +
                       driver.shown("lineEdit_IPv4_Address") + ", mask " +
                       driver.shown("lineEdit_Subnet_Mask"));
    driver.click("pushButton_Connect");
    driver.see_shown("label_current_Ip", "  IP: " + address);
    driver.see_shown("label_name_of_USR", "  Name: ADAPTER");
}
