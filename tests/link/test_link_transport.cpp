// SPDX-License-Identifier: MIT

#include "link/link_transport.h"
#include "sim/pty_port.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <fcntl.h>
#include <new>
#include <termios.h>
#include <unistd.h>

/// The devices of the command link: opening, replacing, closing, and which one is written to.
class Test_Link_Transport : public QObject {
    Q_OBJECT

private slots:
    void cleanup();

    void at_first_no_device_stands();
    void an_opened_port_stands_open_and_counts_one();
    void the_line_gets_the_units_fixed_parameters();
    void bytes_pass_in_both_directions_unchanged();
    void a_port_can_be_closed_and_opened_again();
    void opening_another_port_replaces_the_first();
    void a_port_that_does_not_exist_stands_closed_and_counts_nothing_data();
    void a_port_that_does_not_exist_stands_closed_and_counts_nothing();
    void a_port_that_did_not_open_is_replaced_by_one_that_does();
    void a_device_that_takes_the_place_of_another_counts_if_it_is_open();
    void closing_without_a_port_does_nothing();
    void closing_a_port_deletes_it();
    void bytes_without_an_open_device_are_dropped_in_silence();
    void bytes_go_to_the_device_of_the_chosen_method();
    void closing_the_chosen_device_keeps_the_other();
    void closing_the_chosen_device_without_one_does_nothing();
    void closing_the_socket_deletes_it();
    void a_port_whose_closing_throws_stays_and_counts_on();
    void a_socket_whose_closing_throws_stays_and_counts_on();
};

namespace {

QString name_of(const Pty_Port& device) { return device.device_name().mid(5); }

/// The settings of the line, read through another descriptor.
termios attributes_of(int terminal) {
    termios attributes = {};
    tcgetattr(terminal, &attributes);
    return attributes;
}

/// Gives a line settings that no unit has.
void corrupt_attributes(int terminal) {
    termios attributes = attributes_of(terminal);
    cfsetspeed(&attributes, B9600);
    attributes.c_cflag |= CSTOPB | CRTSCTS | PARODD;
    attributes.c_iflag |= IXON | IXOFF;
    tcsetattr(terminal, TCSANOW, &attributes);
}

QByteArray bytes_after_sending(const Link_Transport& devices, Pty_Port& device,
                               const QByteArray& bytes) {
    QByteArray received;
    const QMetaObject::Connection connection = QObject::connect(
        &device, &Pty_Port::received, [&received](const QByteArray& some) { received += some; });
    devices.write(bytes);
    (void)wait_until([&] { return received.size() >= bytes.size(); });
    QObject::disconnect(connection);
    return received;
}

std::unique_ptr<QUdpSocket> connected_socket(const QUdpSocket& other) {
    auto socket = std::make_unique<QUdpSocket>();
    socket->connectToHost(QHostAddress::LocalHost, other.localPort());
    socket->waitForConnected();
    return socket;
}

} // namespace

void Test_Link_Transport::cleanup() { QCOMPARE(windows_left(), QStringList()); }

void Test_Link_Transport::at_first_no_device_stands() {
    const Link_Transport devices;
    QVERIFY(devices.get_serial_port() == nullptr);
    QVERIFY(devices.get_network_socket() == nullptr);
    QCOMPARE(devices.get_port_open_count(), 0);
    QCOMPARE(devices.get_socket_open_count(), 0);
    QVERIFY(!devices.is_open());
}

void Test_Link_Transport::an_opened_port_stands_open_and_counts_one() {
    const Pty_Port device;
    Link_Transport devices;
    devices.open_port(name_of(device));
    QVERIFY(devices.get_serial_port()->isOpen());
    QCOMPARE(devices.get_serial_port()->portName(), name_of(device));
    QCOMPARE(devices.get_serial_port()->openMode(), QIODevice::ReadWrite);
    QCOMPARE(devices.get_serial_port()->parent(), nullptr);
    QCOMPARE(devices.get_port_open_count(), 1);
    QVERIFY(devices.is_open());
}

void Test_Link_Transport::the_line_gets_the_units_fixed_parameters() {
    const Pty_Port device;
    const int line = ::open(qPrintable(device.device_name()), O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(line >= 0);
    corrupt_attributes(line);
    QCOMPARE(cfgetospeed(std::make_unique<termios>(attributes_of(line)).get()), speed_t(B9600));

    Link_Transport devices;
    devices.open_port(name_of(device));
    const termios attributes = attributes_of(line);
    ::close(line);
    QCOMPARE(cfgetispeed(&attributes), speed_t(B115200));
    QCOMPARE(cfgetospeed(&attributes), speed_t(B115200));
    QCOMPARE(attributes.c_cflag & CSIZE, tcflag_t(CS8));
    QCOMPARE(attributes.c_cflag & PARENB, tcflag_t(0));
    QCOMPARE(attributes.c_cflag & CSTOPB, tcflag_t(0));
    QCOMPARE(attributes.c_cflag & CRTSCTS, tcflag_t(0));
    QCOMPARE(attributes.c_iflag & (IXON | IXOFF), tcflag_t(0));
    // Carriage returns and line feeds pass unchanged.
    QCOMPARE(attributes.c_iflag & (ICRNL | INLCR | IGNCR), tcflag_t(0));
    QCOMPARE(attributes.c_oflag & OPOST, tcflag_t(0));
    QCOMPARE(attributes.c_lflag & (ICANON | ECHO), tcflag_t(0));

    const QSerialPort& port = *devices.get_serial_port();
    QCOMPARE(port.baudRate(QSerialPort::Input), 115200);
    QCOMPARE(port.baudRate(QSerialPort::Output), 115200);
    QCOMPARE(port.dataBits(), QSerialPort::Data8);
    QCOMPARE(port.parity(), QSerialPort::NoParity);
    QCOMPARE(port.stopBits(), QSerialPort::OneStop);
    QCOMPARE(port.flowControl(), QSerialPort::NoFlowControl);
}

void Test_Link_Transport::bytes_pass_in_both_directions_unchanged() {
    Pty_Port device;
    Link_Transport devices;
    devices.open_port(name_of(device));
    QByteArray all_bytes;
    for (int byte = 0; byte <= 0xFF; ++byte) {
        all_bytes += static_cast<char>(byte);
    }
    QCOMPARE(bytes_after_sending(devices, device, all_bytes).toHex(), all_bytes.toHex());
    device.write(all_bytes);
    QVERIFY(wait_until([&] { return devices.get_serial_port()->bytesAvailable() == 256; }));
    QCOMPARE(devices.get_serial_port()->readAll().toHex(), all_bytes.toHex());
}

void Test_Link_Transport::a_port_can_be_closed_and_opened_again() {
    Pty_Port device;
    Link_Transport devices;
    for (int round = 0; round < 3; ++round) {
        devices.open_port(name_of(device));
        QCOMPARE(devices.get_port_open_count(), 1);
        QCOMPARE(bytes_after_sending(devices, device, "//rl\r"), "//rl\r");
        devices.close_port();
        QCOMPARE(devices.get_port_open_count(), 0);
        QVERIFY(!devices.is_open());
    }
}

void Test_Link_Transport::opening_another_port_replaces_the_first() {
    Pty_Port first;
    Pty_Port second;
    const QSignalSpy at_first(&first, &Pty_Port::received);
    Link_Transport devices;
    devices.open_port(name_of(first));
    const QPointer<QSerialPort> first_port = devices.get_serial_port();
    devices.close_port();
    devices.open_port(name_of(second));
    QVERIFY(first_port.isNull());
    QCOMPARE(devices.get_port_open_count(), 1);
    QCOMPARE(bytes_after_sending(devices, second, "//??\r"), "//??\r");
    QCOMPARE(at_first.size(), 0);
}

void Test_Link_Transport::a_port_that_does_not_exist_stands_closed_and_counts_nothing_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << "pts/no-such-line";
    QTest::newRow("empty") << "";
    QTest::newRow("not a terminal") << "null";
}

void Test_Link_Transport::a_port_that_does_not_exist_stands_closed_and_counts_nothing() {
    QFETCH(QString, name);
    Modal_Robot robot;
    Link_Transport devices;
    devices.open_port(name);
    QVERIFY(devices.get_serial_port() != nullptr);
    QVERIFY(!devices.get_serial_port()->isOpen());
    QCOMPARE(devices.get_port_open_count(), 0);
    QVERIFY(!devices.is_open());
    devices.write("//rl\r");
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(robot.snapshots().size(), 0);
}

void Test_Link_Transport::a_port_that_did_not_open_is_replaced_by_one_that_does() {
    Pty_Port device;
    Link_Transport devices;
    devices.open_port("pts/no-such-line");
    const QPointer<QSerialPort> closed_port = devices.get_serial_port();
    devices.open_port(name_of(device));
    QVERIFY(closed_port.isNull());
    QCOMPARE(devices.get_port_open_count(), 1);
    QCOMPARE(bytes_after_sending(devices, device, "//BP\r"), "//BP\r");
}

void Test_Link_Transport::a_device_that_takes_the_place_of_another_counts_if_it_is_open() {
    const Pty_Port device;
    QUdpSocket adapter;
    QVERIFY(adapter.bind(QHostAddress::LocalHost, 0));
    Link_Transport devices;
    auto port = std::make_unique<QSerialPort>(name_of(device));
    QVERIFY(port->open(QIODevice::ReadWrite));
    devices.use_port(std::move(port));
    QCOMPARE(devices.get_port_open_count(), 1);
    devices.use_port(std::make_unique<QSerialPort>(name_of(device)));
    QCOMPARE(devices.get_port_open_count(), 0);
    devices.use_socket(connected_socket(adapter));
    QCOMPARE(devices.get_socket_open_count(), 1);
    devices.use_socket(std::make_unique<QUdpSocket>());
    QCOMPARE(devices.get_socket_open_count(), 0);
    QVERIFY(!devices.is_open());
}

void Test_Link_Transport::closing_without_a_port_does_nothing() {
    Link_Transport devices;
    devices.close_port();
    devices.close_port();
    devices.close_socket();
    QCOMPARE(devices.get_port_open_count(), 0);
    QCOMPARE(devices.get_socket_open_count(), 0);
}

void Test_Link_Transport::closing_a_port_deletes_it() {
    const Pty_Port device;
    Link_Transport devices;
    devices.open_port(name_of(device));
    const QPointer<QSerialPort> port = devices.get_serial_port();
    devices.close_port();
    QVERIFY(port.isNull());
    QVERIFY(devices.get_serial_port() == nullptr);
    QCOMPARE(devices.get_port_open_count(), 0);
}

void Test_Link_Transport::bytes_without_an_open_device_are_dropped_in_silence() {
    Modal_Robot robot;
    Link_Transport devices;
    devices.write("//rl\r");
    devices.choose(Link_Method::network);
    devices.write("//rl\r");
    QVERIFY2(robot.done(), robot.why());
    QCOMPARE(robot.snapshots().size(), 0);
}

void Test_Link_Transport::bytes_go_to_the_device_of_the_chosen_method() {
    Pty_Port device;
    QUdpSocket adapter;
    QVERIFY(adapter.bind(QHostAddress::LocalHost, 0));
    Link_Transport devices;
    devices.open_port(name_of(device));
    devices.use_socket(connected_socket(adapter));

    QCOMPARE(bytes_after_sending(devices, device, "serial"), "serial");
    QVERIFY(!adapter.hasPendingDatagrams());

    const QSignalSpy at_device(&device, &Pty_Port::received);
    devices.choose(Link_Method::network);
    devices.write("network");
    QVERIFY(wait_until([&] { return adapter.hasPendingDatagrams(); }));
    QByteArray datagram(100, '\0');
    datagram.truncate(adapter.readDatagram(datagram.data(), datagram.size()));
    QCOMPARE(datagram, "network");
    QCOMPARE(at_device.size(), 0);
}

void Test_Link_Transport::closing_the_chosen_device_keeps_the_other() {
    const Pty_Port device;
    QUdpSocket adapter;
    QVERIFY(adapter.bind(QHostAddress::LocalHost, 0));
    Link_Transport devices;
    devices.choose(Link_Method::network);
    devices.open_port(name_of(device));
    devices.use_socket(connected_socket(adapter));
    QVERIFY(devices.get_network_socket()->isOpen());

    devices.close_chosen_device();
    QVERIFY(!devices.get_network_socket()->isOpen());
    QVERIFY(devices.get_serial_port()->isOpen());
    devices.choose(Link_Method::serial);
    devices.close_chosen_device();
    QVERIFY(!devices.get_serial_port()->isOpen());
}

void Test_Link_Transport::closing_the_chosen_device_without_one_does_nothing() {
    Link_Transport devices;
    devices.close_chosen_device();
    devices.choose(Link_Method::network);
    devices.close_chosen_device();
    QVERIFY(devices.get_serial_port() == nullptr);
    QVERIFY(devices.get_network_socket() == nullptr);
}

void Test_Link_Transport::closing_the_socket_deletes_it() {
    QUdpSocket adapter;
    QVERIFY(adapter.bind(QHostAddress::LocalHost, 0));
    Link_Transport devices;
    devices.use_socket(connected_socket(adapter));
    QVERIFY(devices.is_open());
    const QPointer<QUdpSocket> socket = devices.get_network_socket();
    devices.close_socket();
    QVERIFY(socket.isNull());
    QCOMPARE(devices.get_socket_open_count(), 0);
    QVERIFY(!devices.is_open());
}

void Test_Link_Transport::a_port_whose_closing_throws_stays_and_counts_on() {
    Pty_Port device;
    // Checked until the port is destroyed.
    bool fails = true;
    Link_Transport devices;
    devices.open_port(name_of(device));
    connect(devices.get_serial_port(), &QIODevice::aboutToClose, this, [&fails] {
        if (fails) {
            throw std::bad_alloc();
        }
    });
    QVERIFY_THROWS_EXCEPTION(std::bad_alloc, devices.close_port());
    QVERIFY(devices.get_serial_port() != nullptr);
    QCOMPARE(devices.get_port_open_count(), 1);
    fails = false;
}

void Test_Link_Transport::a_socket_whose_closing_throws_stays_and_counts_on() {
    QUdpSocket adapter;
    QVERIFY(adapter.bind(QHostAddress::LocalHost, 0));
    // Checked until the socket is destroyed.
    bool fails = true;
    Link_Transport devices;
    devices.choose(Link_Method::network);
    devices.use_socket(connected_socket(adapter));
    connect(devices.get_network_socket(), &QIODevice::aboutToClose, this, [&fails] {
        if (fails) {
            throw std::bad_alloc();
        }
    });
    QVERIFY_THROWS_EXCEPTION(std::bad_alloc, devices.close_socket());
    QVERIFY(devices.get_network_socket() != nullptr);
    QCOMPARE(devices.get_socket_open_count(), 1);
    // Nothing has been lost: the link still works.
    devices.write("still here");
    QVERIFY(wait_until([&] { return adapter.hasPendingDatagrams(); }));
    fails = false;
}

QTEST_MAIN(Test_Link_Transport)

#include "test_link_transport.moc"
