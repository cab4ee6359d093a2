// SPDX-License-Identifier: MIT

#include "link/link_transport.h"
#include "tests/support/expect_box.h"
#include "tests/support/log_folder.h"
#include "tests/support/network_test.h"
#include "tests/support/wait_until.h"

#include <new>

namespace {

bool closing_sockets_fails = false;
bool closing_ports_fails = false;

} // namespace

// The linker redirects the calls of Link_Transport::close_socket() and close_port() to here (see
// CMakeLists.txt): they can fail on demand, which no input can cause.
void real_close_socket(Link_Transport* devices) __asm__(
    "__real__ZN14Link_Transport12close_socketEv");
void failing_close_socket(Link_Transport* devices) __asm__(
    "__wrap__ZN14Link_Transport12close_socketEv");
void real_close_port(Link_Transport* devices) __asm__("__real__ZN14Link_Transport10close_portEv");
void failing_close_port(Link_Transport* devices) __asm__(
    "__wrap__ZN14Link_Transport10close_portEv");

// The socket itself fails while it closes.
void failing_close_socket(Link_Transport* devices) {
    if (closing_sockets_fails && devices->get_network_socket() != nullptr) {
        QObject::connect(devices->get_network_socket(), &QIODevice::aboutToClose, [] {
            if (closing_sockets_fails) {
                throw std::bad_alloc();
            }
        });
    }
    real_close_socket(devices);
}

void failing_close_port(Link_Transport* devices) {
    if (closing_ports_fails) {
        throw std::bad_alloc();
    }
    real_close_port(devices);
}

/// Failures of the links themselves: each is shown, written to the event log, and goes no further.
class Test_Network_Failures : public Network_Test {
    Q_OBJECT

private slots:
    void a_failed_connecting_leaves_the_link_unchanged();
    void a_socket_that_cannot_be_closed_is_kept();
    void a_socket_that_cannot_be_closed_stops_the_serial_path_nowhere();
    void a_port_that_cannot_be_closed_is_kept();
    void a_port_that_cannot_be_closed_does_not_stop_the_network_path();
};

void Test_Network_Failures::a_failed_connecting_leaves_the_link_unchanged() {
    const Log_Folder folder;
    QVERIFY(at->open_network());
    at->expect_network_path();
    expect_warning(at->robot, "Connection to socket error");
    closing_sockets_fails = true;
    at->run_wizard();
    closing_sockets_fails = false;
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(folder.entries(), QStringList("Connection to socket error"));
    QCOMPARE(Network_Fixture::socket_count(), 1);
    // The questions that follow are sent on the current link.
    QCOMPARE(at->take_commands(at->start_commands().size()), at->start_commands());
    QVERIFY(at->wait_filled());
    QVERIFY(at->is_connected());
    QVERIFY(at->change_reaches_adapter());
}

void Test_Network_Failures::a_socket_that_cannot_be_closed_is_kept() {
    const Log_Folder folder;
    QVERIFY(at->open_network());
    expect_warning(at->robot, "Close socket error");
    closing_sockets_fails = true;
    at->button("pushButton_OFF_Connection").click();
    closing_sockets_fails = false;
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(folder.entries(), QStringList("Close socket error"));
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(!at->is_connected());
    QVERIFY(!at->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(at->button("pushButton_ON_Connection").isEnabled());
    // Its count is 0: commands are dropped, except the layout, which is written past the guard.
    at->silence_switch();
    at->combo("comboBox_KM_Control").setCurrentIndex(2);
    QVERIFY(at->run_slot("on_pushButton_Soft_Reset_clicked"));
    expect_information(at->robot, "Display topology has been updated");
    QVERIFY(at->run_slot("on_pushButtonSubmit_clicked"));
    QCOMPARE(at->take_commands(1), QByteArrayList{"//FF01B01FF02B02FF03B03FF04B04"});
    at->wake_switch();
    at->button("pushButton_ON_Connection").click();
    QCOMPARE(Network_Fixture::socket_count(), 1);
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
    QCOMPARE(folder.entries().size(), 1);
}

void Test_Network_Failures::a_socket_that_cannot_be_closed_stops_the_serial_path_nowhere() {
    const Log_Folder folder;
    QVERIFY(at->open_network());
    at->robot.expect(choose_serial());
    // Once as the port list's first line is chosen, once as the path opens the port.
    expect_warning(at->robot, "Close socket error");
    expect_warning(at->robot, "Close socket error");
    closing_sockets_fails = true;
    at->run_wizard();
    closing_sockets_fails = false;
    QVERIFY2(at->robot.done(), at->robot.why());
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_serial_line());
    QCOMPARE(Network_Fixture::socket_count(), 1);
}

void Test_Network_Failures::a_port_that_cannot_be_closed_is_kept() {
    const Log_Folder folder;
    QVERIFY(at->open_serial());
    expect_warning(at->robot, "Close serial error");
    closing_ports_fails = true;
    at->button("pushButton_OFF_Connection").click();
    closing_ports_fails = false;
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(folder.entries(), QStringList("Close serial error"));
    QVERIFY(!at->is_connected());
    QVERIFY(!at->combo("comboBox_KM_Control").isEnabled());
    QVERIFY(!at->change_reaches_serial_line());
    at->button("pushButton_ON_Connection").click();
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_serial_line());
    QCOMPARE(folder.entries().size(), 1);
}

void Test_Network_Failures::a_port_that_cannot_be_closed_does_not_stop_the_network_path() {
    const Log_Folder folder;
    QVERIFY(at->open_serial());
    at->expect_network_path();
    expect_warning(at->robot, "Close serial error");
    closing_ports_fails = true;
    at->run_wizard();
    closing_ports_fails = false;
    QVERIFY2(at->robot.done(), at->robot.why());
    QCOMPARE(folder.entries(), QStringList("Close serial error"));
    QVERIFY(at->wait_filled());
    QVERIFY(at->change_reaches_adapter());
}

int main(int argc, char** argv) { return run_network_test<Test_Network_Failures>(argc, argv); }
#include "test_network_failures.moc"
