// SPDX-License-Identifier: MIT

#pragma once

#include "link/link_method.h"

#include <QSerialPort>
#include <QUdpSocket>

#include <memory>

/// The device under the command link. Only one of the two exists at a time; which one commands go
/// to is decided by the chosen method, not by what exists.
class Link_Transport {
public:
    /// 115200 baud, 8 data bits, no parity, 1 stop bit, no flow control: the unit's fixed setting.
    static constexpr qint32 baud_rate = QSerialPort::Baud115200;

    /// Makes a new port object for a name and tries to open it. A port that does not open stays
    /// closed, without a word to the user; the reason goes to the diagnostics.
    void open_port(const QString& port_name);
    /// Close and delete the port, or the socket, if there is one, and take its count down. A device
    /// whose closing throws stays, and its count as it was.
    void close_port();
    void close_socket();
    /// Closes the device of the chosen method, if it exists, and keeps the object.
    void close_chosen_device() const;

    /// True while a port or a socket is open.
    [[nodiscard]] bool is_open() const { return port_open_count >= 1 || socket_open_count >= 1; }
    /// Writes to the device of the chosen method. Without an open one the bytes are dropped.
    void write(const QByteArray& bytes) const;
    /// Writes to the port, whatever the chosen method. Without an open one the bytes are dropped.
    void write_to_port(const QByteArray& bytes) const;

    /// What commands go to, whether it exists or not.
    Link_Method method = Link_Method::serial;
    std::unique_ptr<QSerialPort> serial_port;
    /// 1 from an opening that succeeded to the closing by close_port(), 0 otherwise. A port that
    /// was closed because its line is gone still counts as 1.
    int port_open_count = 0;
    std::unique_ptr<QUdpSocket> network_socket;
    /// 1 from a connection that succeeded to the closing by close_socket(), 0 otherwise.
    int socket_open_count = 0;

private:
    /// The device of the chosen method; null if it does not exist.
    [[nodiscard]] QIODevice* chosen_device() const;
    static void write_to(QIODevice* device, const QByteArray& bytes);
};
