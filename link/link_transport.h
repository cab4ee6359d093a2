// SPDX-License-Identifier: MIT

#pragma once

#include "link/link_method.h"

#include <QByteArray>
#include <QHostAddress>
#include <QSerialPort>
#include <QString>
#include <QUdpSocket>

#include <memory>

/// The device under the command link. Only one of the two exists at a time; which one commands go
/// to is decided by the chosen method, not by what exists.
class Link_Transport {
public:
    /// 115200 baud, 8 data bits, no parity, 1 stop bit, no flow control: the unit's fixed setting.
    static constexpr qint32 baud_rate = QSerialPort::Baud115200;

    /// What commands go to, whether it exists or not.
    void choose(Link_Method method) { chosen_method = method; }
    [[nodiscard]] Link_Method get_method() const { return chosen_method; }

    /// Makes a new port object for a name and tries to open it. A port that does not open stays
    /// closed, without a word to the user; the reason goes to the diagnostics.
    void open_port(const QString& port_name);
    /// Makes a new socket object and connects it to a port of an adapter. It counts once
    /// wait_for_socket() has found it connected.
    void connect_socket(const QHostAddress& address, quint16 port);
    /// Waits at most this long for the connection. @return whether the socket is connected, and so
    /// counts as open.
    [[nodiscard]] bool wait_for_socket(int milliseconds);
    /// Replace the port, or the socket, by this one. It counts if it is open.
    void use_port(std::unique_ptr<QSerialPort> port);
    void use_socket(std::unique_ptr<QUdpSocket> socket);

    /// Close and delete the port, or the socket, if there is one, and take its count down. A device
    /// whose closing throws stays, and its count as it was.
    void close_port();
    void close_socket();
    /// Take a count down before the closing, so that it is down even if the closing throws.
    void count_port_as_closed() { port_open_count = 0; }
    void count_socket_as_closed() { socket_open_count = 0; }
    /// Closes the device of the chosen method, if it exists, and keeps the object.
    void close_chosen_device() const;

    /// True while a port or a socket counts as open.
    [[nodiscard]] bool is_open() const { return port_open_count >= 1 || socket_open_count >= 1; }
    /// Writes to the device of the chosen method. Without an open one the bytes are dropped.
    void write(const QByteArray& bytes) const;
    /// Writes to the port, whatever the chosen method. Without an open one the bytes are dropped.
    void write_to_port(const QByteArray& bytes) const;

    /// The devices, open or not; null if there is none.
    [[nodiscard]] QSerialPort* get_serial_port() const { return serial_port.get(); }
    [[nodiscard]] QUdpSocket* get_network_socket() const { return network_socket.get(); }
    /// 1 from an opening that succeeded to the closing by close_port(), 0 otherwise. A port that
    /// was closed because its line is gone still counts as 1.
    [[nodiscard]] int get_port_open_count() const { return port_open_count; }
    /// 1 from a connection that succeeded to the closing by close_socket(), 0 otherwise.
    [[nodiscard]] int get_socket_open_count() const { return socket_open_count; }

private:
    Link_Method chosen_method = Link_Method::serial;
    std::unique_ptr<QSerialPort> serial_port;
    int port_open_count = 0;
    std::unique_ptr<QUdpSocket> network_socket;
    int socket_open_count = 0;

    /// The device of the chosen method; null if it does not exist.
    [[nodiscard]] QIODevice* chosen_device() const;
    static void write_to(QIODevice* device, const QByteArray& bytes);
};
