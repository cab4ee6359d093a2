// SPDX-License-Identifier: MIT

#include "link/link_transport.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(link_log, "halvern.link", QtCriticalMsg)

void quiet(QSerialPort& port, const QString& reason) {
    if (port.isOpen()) {
        qCDebug(link_log) << port.portName() << "quieted:" << reason;
        port.close();
    }
}

// Queued: the port may not be closed from inside its own notifier, and what came in together with
// the error is to be read first.
void quiet_at_first_error(QSerialPort& port) {
    QObject::connect(
        &port, &QSerialPort::errorOccurred, &port,
        [&port](QSerialPort::SerialPortError error) {
            if (error != QSerialPort::NoError) {
                quiet(port, port.errorString());
            }
        },
        Qt::QueuedConnection);
}

// A line that was hung up reads as 0 bytes for ever. Qt 6.4 raises an error for each of these
// reads, Qt 6.5 and later none, and both take a whole processor. The kernel reports the hang-up as
// an exceptional condition of the descriptor as well, which an open line never has.
void quiet_when_hung_up([[maybe_unused]] QSerialPort& port) {
#ifdef Q_OS_UNIX
    auto* notifier = new QSocketNotifier(port.handle(), QSocketNotifier::Exception, &port);
    QObject::connect(
        notifier, &QSocketNotifier::activated, &port, [&port] { quiet(port, "hung up"); },
        Qt::QueuedConnection);
    QObject::connect(&port, &QIODevice::aboutToClose, notifier,
                     [notifier] { notifier->setEnabled(false); });
#endif
}

} // namespace

void Link_Transport::open_port(const QString& port_name) {
    use_port(std::make_unique<QSerialPort>(port_name));
    serial_port->setBaudRate(baud_rate, QSerialPort::AllDirections);
    serial_port->setDataBits(QSerialPort::Data8);
    serial_port->setParity(QSerialPort::NoParity);
    serial_port->setStopBits(QSerialPort::OneStop);
    serial_port->setFlowControl(QSerialPort::NoFlowControl);
    serial_port->open(QIODevice::ReadWrite);
    if (serial_port->isOpen()) {
        port_open_count = 1;
        quiet_at_first_error(*serial_port);
        quiet_when_hung_up(*serial_port);
    } else {
        qCDebug(link_log) << port_name << "did not open:" << serial_port->errorString();
    }
}

void Link_Transport::use_port(std::unique_ptr<QSerialPort> port) {
    serial_port = std::move(port);
    port_open_count = serial_port->isOpen() ? 1 : 0;
}

void Link_Transport::connect_socket(const QHostAddress& address, quint16 port) {
    use_socket(std::make_unique<QUdpSocket>());
    network_socket->connectToHost(address, port, QIODevice::ReadWrite);
}

bool Link_Transport::wait_for_socket(int milliseconds) {
    if (!network_socket->waitForConnected(milliseconds)) {
        return false;
    }
    socket_open_count = 1;
    return true;
}

void Link_Transport::use_socket(std::unique_ptr<QUdpSocket> socket) {
    network_socket = std::move(socket);
    socket_open_count = network_socket->isOpen() ? 1 : 0;
}

void Link_Transport::close_port() {
    if (!serial_port) {
        return;
    }
    serial_port->close();
    serial_port.reset();
    port_open_count = 0;
}

void Link_Transport::write(const QByteArray& bytes) const { write_to(chosen_device(), bytes); }

void Link_Transport::write_to_port(const QByteArray& bytes) const {
    write_to(serial_port.get(), bytes);
}

void Link_Transport::write_to(QIODevice* device, const QByteArray& bytes) {
    if (device == nullptr || !device->isOpen()) {
        qCDebug(link_log) << "dropped, no open device:" << bytes;
        return;
    }
    if (device->write(bytes) < 0) {
        qCDebug(link_log) << "not sent:" << device->errorString();
    }
}

void Link_Transport::close_socket() {
    if (!network_socket) {
        return;
    }
    network_socket->close();
    network_socket.reset();
    socket_open_count = 0;
}

void Link_Transport::close_chosen_device() const {
    if (QIODevice* device = chosen_device()) {
        device->close();
    }
}

QIODevice* Link_Transport::chosen_device() const {
    if (chosen_method == Link_Method::network) {
        return network_socket.get();
    }
    return serial_port.get();
}
