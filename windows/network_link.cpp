#include "windows/network_link.h"

#include "app/message_box.h"

#include <QMessageBox>
#include <QTimer>

#include <cstdlib>

namespace {

[[noreturn]] void warn_and_exit(QMainWindow& window, const QString& text) {
    QMessageBox::warning(&window, " ", text, QMessageBox::Ok);
    std::exit(1);
}

} // namespace

Network_Link::Network_Link(QMainWindow& main_window, const Network_Widgets& network_widgets,
                           Link_Transport& link_devices, Left_Menu& left_menu,
                           Terminal_View& terminal_view, Connection& serial_connection)
    : window(main_window),
      widgets(network_widgets),
      devices(link_devices),
      menu(left_menu),
      terminal(terminal_view),
      connection(serial_connection) {}

void Network_Link::connect_to_USR() {
    try {
        replace_socket();
        widgets.label_current_Ip.setText("  IP: " + current_USR_ip);
        show_adapter_name();
        // Queued, because a report can end in a box: while a slot called directly waits in one, Qt
        // signals nothing of what comes in, and goes on so when the box is closed.
        QObject::connect(devices.network_socket.get(), SIGNAL(readyRead()), &window,
                         SLOT(onReadyRead()), Qt::QueuedConnection);
        if (devices.network_socket->waitForConnected(connect_wait_ms)) {
            devices.socket_open_count += 1;
            return;
        }
    } catch (...) {
        report_failure("Connection to socket error");
        return;
    }
    warn_and_exit(window, "No connection");
}

void Network_Link::turn_on() {
    if (devices.is_network_chosen()) {
        connect_to_USR();
        QTimer::singleShot(first_answer_wait_ms, Qt::PreciseTimer, &window,
                           SLOT(is_not_Connected_Message()));
    } else {
        connection.open_serial_port();
    }
    connection.refresh_UI();
}

void Network_Link::is_not_Connected_Message() {
    if (!menu.shows_connected()) {
        warn_and_exit(window, "Check if the device is on the same network as the PC");
    }
}

void Network_Link::show_serial_controls() { show_controls(false); }

void Network_Link::show_network_controls() { show_controls(true); }

void Network_Link::show_adapter_name() {
    // ON can be pressed before any run of the wizard has got as far as an adapter.
    const QString name = ip_settings_dialog ? ip_settings_dialog->get_usr_name() : QString();
    widgets.label_name_of_USR.setText("  Name: " + name);
}

void Network_Link::replace_socket() {
    terminal.clear();
    if (devices.socket_open_count > 0) {
        devices.close_socket();
        menu.set_disconnected_indicator();
    }
    connection.close_serial_port();
    devices.network_socket = std::make_unique<QUdpSocket>();
    devices.network_socket->connectToHost(QHostAddress(current_USR_ip), data_port,
                                          QIODevice::ReadWrite);
}

void Network_Link::show_controls(bool of_network) {
    menu.port_list().setVisible(!of_network);
    widgets.label_Select_port.setVisible(!of_network);
    widgets.label_current_Ip.setVisible(of_network);
    widgets.label_name_of_USR.setVisible(of_network);
    widgets.pushButton_Admin_Settings.setVisible(of_network);
}
