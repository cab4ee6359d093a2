// SPDX-License-Identifier: MIT

#include "link/switch_session.h"

#include "link/flag_guard.h"
#include "link/link_transport.h"
#include "link/pending_datagrams.h"
#include "link/session_traits.h"
#include "link/session_view.h"

#include <QSerialPortInfo>
#include <QTimer>

Switch_Session::Switch_Session(Session_View& session_view, QObject& window,
                               const Session_Traits& session_traits)
    : view(session_view),
      slots_owner(window),
      traits(session_traits),
      transport(std::make_unique<Link_Transport>()),
      writer(
          state, *transport, [this](const std::string& text) { view.report_failure(text); },
          traits.has_audio),
      replies(state, writer, view, window, traits.network_notice_order) {}

Switch_Session::~Switch_Session() = default;

void Switch_Session::port_changed(const QString& port_name) {
    const Flag_Guard silent(state.ui_changes_enabled, false);
    view.disable_controls();
    set_disconnected_indicator();
    state.received_buff.clear();
    view.remove_custom_setting_items();
    open_serial_port(port_name);
    writer.send_start_commands();
}

void Switch_Session::turn_on(const QString& port_name) {
    if (transport->get_method() == Link_Method::network) {
        connect_to_USR();
        QTimer::singleShot(first_answer_wait_ms, Qt::PreciseTimer, &slots_owner,
                           SLOT(is_not_Connected_Message()));
    } else {
        open_serial_port(port_name);
    }
    refresh_UI();
}

void Switch_Session::turn_off() {
    close_current_link();
    if (!state.km_connected) {
        return;
    }
    set_disconnected_indicator();
    if (!traits.controls_fall_with_device) {
        view.disable_controls();
    }
}

void Switch_Session::refresh_UI() {
    const Flag_Guard silent(state.ui_changes_enabled, false);
    state.received_buff.clear();
    view.remove_custom_setting_items();
    state.km_connected = false;
    writer.send_start_commands();
}

void Switch_Session::refresh_after(int milliseconds) {
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &slots_owner, SLOT(refresh_UI()));
}

void Switch_Session::refresh_after_reset() {
    if (transport->get_network_socket() != nullptr) {
        refresh_after(reset_wait_network_ms);
    } else if (transport->get_serial_port() != nullptr) {
        refresh_after(reset_wait_serial_ms);
    }
}

QStringList Switch_Session::available_ports() {
    QStringList names;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
        names.append(port.portName());
    }
    return names;
}

void Switch_Session::choose(Link_Method method) { transport->choose(method); }

void Switch_Session::open_serial_port(const QString& port_name) {
    try {
        if (traits.clears_terminal_on_port_open) {
            view.clear_terminal();
        }
        if (transport->get_port_open_count() > 0) {
            transport->close_port();
        }
        close_network_socket();
        transport->open_port(port_name);
        connect_ready_read();
    } catch (...) {
        view.report_failure("Connection to serial port error");
    }
}

void Switch_Session::connect_ready_read() {
    QObject::connect(transport->get_serial_port(), SIGNAL(readyRead()), &slots_owner,
                     SLOT(serialRecieve()));
}

void Switch_Session::connect_to_USR(const QString& address) {
    current_USR_ip = address;
    connect_to_USR();
}

void Switch_Session::connect_to_USR() {
    try {
        replace_socket();
        view.show_adapter(current_USR_ip);
        // Queued, because a report can open a message box: while a directly called slot waits in
        // it, Qt does not signal incoming data, and does not start again when the box is closed.
        QObject::connect(transport->get_network_socket(), SIGNAL(readyRead()), &slots_owner,
                         SLOT(onReadyRead()), Qt::QueuedConnection);
        if (transport->wait_for_socket(connect_wait_ms)) {
            return;
        }
    } catch (...) {
        view.report_failure("Connection to socket error");
        return;
    }
    view.end_process("No connection");
}

void Switch_Session::is_not_Connected_Message() {
    if (!view.shows_connected()) {
        view.end_process("Check if the device is on the same network as the PC");
    }
}

template <class Close>
void Switch_Session::close_reported(const char* failure, const Close& close) {
    try {
        if (traits.controls_fall_with_device) {
            view.disable_controls();
        }
        close();
    } catch (...) {
        if (traits.reports_failed_closing) {
            view.report_failure(failure);
        }
    }
}

void Switch_Session::close_serial_port() {
    if (transport->get_serial_port() != nullptr) {
        close_reported("Close serial error", [this] {
            transport->count_port_as_closed();
            transport->close_port();
        });
    }
}

void Switch_Session::close_network_socket() {
    if (transport->get_network_socket() != nullptr) {
        close_reported("Close socket error", [this] {
            transport->count_socket_as_closed();
            transport->close_socket();
        });
    }
}

void Switch_Session::close_device() { transport->close_chosen_device(); }

void Switch_Session::set_disconnected_indicator() {
    state.km_connected = false;
    view.set_disconnected_indicator();
}

void Switch_Session::serialRecieve() {
    replies.take_serial_chunk(transport->get_serial_port()->readAll());
}

void Switch_Session::onReadyRead() {
    QUdpSocket* socket = transport->get_network_socket();
    if (socket == nullptr) {
        // Closed since the datagram came in.
        return;
    }
    // An adapter whose data port is closed raises the signal without a datagram.
    if (const auto chunk = read_pending_datagrams(*socket)) {
        replies.take_network_chunk(*chunk);
    }
}

void Switch_Session::close_current_link() {
    if (transport->get_method() == Link_Method::network) {
        close_network_socket();
    } else {
        close_serial_port();
    }
}

void Switch_Session::replace_socket() {
    view.clear_terminal();
    if (transport->get_socket_open_count() > 0) {
        transport->close_socket();
        set_disconnected_indicator();
    }
    close_serial_port();
    transport->connect_socket(QHostAddress(current_USR_ip), data_port);
}
