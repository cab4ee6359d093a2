// SPDX-License-Identifier: MIT

#include "tests/support/network_fixture.h"

#include "tests/support/expect_box.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"
#include "tests/support/wizard_fixture.h"
#include "windows/halvern_velmoran_plus.h"
#include "windows/halvern_velmoran_pro.h"

#include <QFile>

#include <utility>

Modal_Expectation choose_network() {
    return {.class_name = "Select_connection_method_Dialog",
            .action = in_order({press_object("radioButton_TCP_IP"), press_button("Continue")})};
}

Modal_Expectation choose_serial() { return serial_method(); }

Modal_Expectation choose_adapter(int index) {
    const auto choose = [index](QWidget& dialog) {
        find_child<QComboBox>(dialog, "comboBox").setCurrentIndex(index);
        return QString();
    };
    return {.class_name = "Select_hardware_Dialog",
            .action = in_order({choose, press_button("Continue")})};
}

Modal_Expectation log_in(const QString& username, const QString& password) {
    return {.class_name = "Credentials_Dialog",
            .action = in_order({type_into("lineEdit_username", username),
                                type_into("lineEdit_password", password),
                                press_object("pushButton_ip_allocation")})};
}

Modal_Expectation connect_adapter() {
    return {.class_name = "IP_Settings_Dialog", .action = press_object("pushButton_Connect")};
}

QStringList network_path() {
    return {"Select_connection_method_Dialog", "Select_hardware_Dialog", "Credentials_Dialog",
            "IP_Settings_Dialog"};
}

Modal_Expectation close_dialog(const QString& class_name) {
    return {.class_name = class_name, .action = close_by_frame()};
}

Modal_Expectation escape_dialog(const QString& class_name) {
    return {.class_name = class_name, .action = press_key(Qt::Key_Escape)};
}

Network_Fixture::Network_Fixture(Switch_Model model)
    : Window_Fixture(model), adapter(network.add_adapter()), unit(model), window_model(model) {
    wake_switch();
    QObject::connect(&adapter, &Simulated_Adapter::switch_command_taken, &network,
                     [this](const QByteArray& command) { taken << command; });
}

Network_Fixture::~Network_Fixture() { close(); }

void Network_Fixture::expect_network_path(int dialogs) {
    const Modal_Expectation steps[] = {choose_network(), choose_adapter(), log_in(),
                                       connect_adapter()};
    for (int step = 0; step < dialogs; ++step) {
        robot.expect(steps[step]);
    }
}

void Network_Fixture::expect_login_without_credentials() {
    robot.expect(escape_dialog("Credentials_Dialog"));
    expect_warning(robot, "Bad credentials");
    for (int reading = 0; reading < 2; ++reading) {
        expect_warning(robot, "Get static IP error");
        expect_warning(robot, "Get subnet mask error");
        expect_warning(robot, "Get gateway error");
    }
}

void Network_Fixture::expect_new_address(const QString& address) {
    robot.expect({.class_name = "IP_Settings_Dialog",
                  .action = in_order({press_object("radioButton_Static"),
                                      type_into("lineEdit_IPv4_Address", address),
                                      press_object("pushButton_Apply_IP")})});
    expect_information(robot, "The IP was applied successfully");
    robot.expect(connect_adapter());
}

bool Network_Fixture::open_network() {
    expect_network_path();
    open();
    const bool filled = wait_filled();
    return filled && take_commands(start_commands().size()) == start_commands();
}

bool Network_Fixture::open_silent() {
    silence_switch();
    expect_network_path();
    open();
    return take_commands(start_commands().size()) == start_commands();
}

bool Network_Fixture::open_serial() {
    robot.expect(choose_serial());
    return open_filled();
}

void Network_Fixture::wake_switch() {
    adapter.set_switch([this](const QByteArray& command) { return unit.answer(command); });
}

QByteArrayList Network_Fixture::start_commands() const {
    QByteArrayList commands = {"//rl", "//??", "//BP"};
    if (window_model == Switch_Model::pro) {
        commands << "//QA";
    }
    return commands;
}

QByteArray Network_Fixture::report() {
    QByteArray text;
    for (const QByteArray& command : start_commands()) {
        text += unit.answer(command);
    }
    return text;
}

QByteArrayList Network_Fixture::take_commands(qsizetype count) {
    if (!wait_until([&] { return taken.size() >= count; })) {
        taken << "and no more";
    }
    settle();
    return std::exchange(taken, {});
}

QByteArray Network_Fixture::pick_another_channel() {
    QComboBox& channel = combo("comboBox_KM_Control");
    channel.setCurrentIndex((channel.currentIndex() + 1) % channel.count());
    return "//c" + QByteArray::number(channel.currentIndex() + 1);
}

bool Network_Fixture::change_reaches_adapter() {
    taken.clear();
    device.clear_record();
    const QByteArray command = pick_another_channel();
    const bool arrived = wait_until([&] { return taken.contains(command); }, 2000);
    return arrived && device.received_commands().isEmpty();
}

bool Network_Fixture::change_reaches_serial_line() {
    taken.clear();
    device.clear_record();
    const QByteArray command = pick_another_channel();
    const bool arrived =
        wait_until([&] { return device.received_commands().contains(command); }, 2000);
    return arrived && taken.isEmpty();
}

void Network_Fixture::settle(int milliseconds) {
    const bool never = wait_until([] { return false; }, milliseconds);
    Q_UNUSED(never)
}

int Network_Fixture::socket_count() {
    QFile sockets("/proc/self/net/udp");
    if (!sockets.open(QIODevice::ReadOnly)) {
        return -1;
    }
    constexpr qsizetype remote_column = 2;
    int count = 0;
    for (const QByteArray& line : sockets.readAll().split('\n')) {
        const QByteArrayList columns = line.simplified().split(' ');
        // Port 23, as the kernel writes it.
        if (columns.size() > remote_column && columns[remote_column].endsWith(":0017")) {
            ++count;
        }
    }
    return count;
}

QStringList Network_Fixture::visible_link_widgets() const {
    QStringList names;
    for (const QString& name : serial_widgets() + network_widgets()) {
        if (find_child<QWidget>(window(), name).isVisibleTo(&window())) {
            names << name;
        }
    }
    return names;
}

QStringList Network_Fixture::network_widgets() {
    return {"label_current_Ip", "label_name_of_USR", "pushButton_Admin_Settings"};
}

QStringList Network_Fixture::serial_widgets() {
    return {"comboBox_SelectPort", "label_Select_port"};
}

std::unique_ptr<QMainWindow> Network_Fixture::make_window() {
    if (window_model == Switch_Model::pro) {
        return std::make_unique<Halvern_Velmoran_PRO>();
    }
    return std::make_unique<Halvern_Velmoran_PLUS>();
}

void Network_Fixture::write_command(const std::string& command) {
    if (auto* pro = qobject_cast<Halvern_Velmoran_PRO*>(&window())) {
        pro->writeCommand(std::string(command));
    } else if (auto* plus = qobject_cast<Halvern_Velmoran_PLUS*>(&window())) {
        plus->writeCommand(std::string(command));
    }
}
