#include "tests/tour/start.h"

void pick_model(Visitor& visitor, const QString& radio_button) {
    visitor.click(radio_button);
    visitor.see_shown(radio_button, "checked");
    visitor.take_picture("model");
    visitor.tell("model picked: " + radio_button.section('_', 1));
    visitor.click("pushButton_Continue");
}

void take_serial_road(Visitor& visitor) {
    visitor.click("radioButton_RS232");
    visitor.see_shown("radioButton_RS232", "checked");
    visitor.take_picture("method");
    visitor.tell("connection method picked: RS232");
    visitor.click("pushButton_continue");
}

void take_network_road(Visitor& visitor, const QString& address) {
    visitor.click("radioButton_TCP_IP");
    visitor.click("pushButton_continue");

    visitor.choose("comboBox", address + "   ADAPTER");
    visitor.take_picture("hardware");
    visitor.tell("adapters found by broadcast, picked: " + visitor.shown("comboBox"));
    visitor.click("pushButton_Continue");

    visitor.see_shown("label_current_ip", address);
    visitor.type("lineEdit_username", "admin");
    visitor.type("lineEdit_password", "admin");
    visitor.take_picture("login");
    visitor.click("pushButton_ip_allocation");

    visitor.see_shown("label_IP", address);
    visitor.see_shown("radioButton_DHCP", "checked");
    visitor.see_shown("lineEdit_IPv4_Address", address);
    visitor.take_picture("ip-settings");
    visitor.tell("logged in, the adapter's settings read: address " +
                 visitor.shown("lineEdit_IPv4_Address") + ", mask " +
                 visitor.shown("lineEdit_Subnet_Mask"));
    visitor.click("pushButton_Connect");
    visitor.see_shown("label_current_Ip", "  IP: " + address);
    visitor.see_shown("label_name_of_USR", "  Name: ADAPTER");
}
