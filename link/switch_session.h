// SPDX-License-Identifier: MIT

#pragma once

#include "link/command_writer.h"
#include "link/link_method.h"
#include "link/reply_dispatcher.h"
#include "link/session_state.h"

#include <QString>
#include <QStringList>

#include <memory>

class Link_Transport;
class QObject;
class Session_View;
struct Session_Traits;

/// The session with a switch: the state of the conversation, the devices under it, what is written
/// and what becomes of the answers. It opens, closes and refreshes the link and says upward,
/// through Session_View, what is to be shown; it knows no widget.
///
/// Only one device is open at a time. Which one commands go to is decided by the chosen method.
/// That a port is open, or a socket connected, proves no switch: only an answer does.
class Switch_Session {
public:
    /// The adapter's data port.
    static constexpr quint16 data_port = 23;
    static constexpr int connect_wait_ms = 3000;
    /// A switch that has not answered this long after ON is taken for unreachable.
    static constexpr int first_answer_wait_ms = 7000;
    /// A unit needs this long to start again after a factory reset, over each link.
    static constexpr int reset_wait_serial_ms = 2500;
    static constexpr int reset_wait_network_ms = 1350;

    /// @param window its slots take what comes in and what timers end: serialRecieve(),
    ///        onReadyRead(), get_data_from_TQL_by_serial_port(), set_current_layout_from_buff(),
    ///        refresh_UI(), is_not_Connected_Message().
    Switch_Session(Session_View& session_view, QObject& window,
                   const Session_Traits& session_traits);
    ~Switch_Session();

    // What the left menu does.
    /// Opens another port of the list and asks its switch for everything.
    void port_changed(const QString& port_name);
    /// ON: opens the link of the chosen method and asks the switch for everything. On the network a
    /// switch has to answer in time.
    void turn_on(const QString& port_name);
    /// OFF: closes the link; shows "disconnected" if a switch has answered before.
    void turn_off();
    /// Forgets what the switch has said and asks it for everything.
    void refresh_UI();

    /// Calls refresh_UI() once a time is over.
    void refresh_after(int milliseconds);
    /// The same once a unit on this link has had time for a factory reset; never without a device.
    void refresh_after_reset();

    // Opening.
    /// Names of the serial ports that the machine has now.
    [[nodiscard]] static QStringList available_ports();
    void choose(Link_Method method);
    /// Replaces the current link by a port. One that can't be opened leaves no sign but the red
    /// indicator.
    void open_serial_port(const QString& port_name);
    void connect_ready_read();
    /// Replaces the current link by a socket to an adapter, and by one to the same adapter the
    /// second time. A connection that fails ends the process.
    void connect_to_USR(const QString& address);
    void connect_to_USR();
    /// The time for a first answer is over. Without one the process ends. OFF does not take this
    /// back.
    void is_not_Connected_Message();
    /// Dotted address of the adapter in use; empty before the first.
    [[nodiscard]] const QString& get_current_USR_ip() const { return current_USR_ip; }

    // Closing.
    /// Close and delete the port, or the socket, if there is one. Its count falls first; a device
    /// whose closing throws stays, and no command reaches it any more.
    void close_serial_port();
    void close_network_socket();
    /// Closes the device of the chosen method and keeps the object. For the end of a window.
    void close_device();

    /// Shows that no switch has answered, and takes km_connected down.
    void set_disconnected_indicator();

    // What comes in.
    void serialRecieve();
    void onReadyRead();

    /// The devices themselves. Pages have no business there.
    [[nodiscard]] Link_Transport& get_transport() { return *transport; }

    Session_State state;

private:
    Session_View& view;
    QObject& slots_owner;
    const Session_Traits& traits;
    std::unique_ptr<Link_Transport> transport;
    QString current_USR_ip;

    void close_current_link();
    void replace_socket();
    /// Closes one device, with the controls before it where the model has it so. What it throws
    /// ends here, reported or not as the model has it.
    template <class Close>
    void close_reported(const char* failure, const Close& close);

public:
    Command_Writer writer;
    Reply_Dispatcher replies;
};
