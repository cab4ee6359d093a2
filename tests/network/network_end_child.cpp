// SPDX-License-Identifier: MIT

#include "tests/network/stalled_connection.h"
#include "tests/support/expect_box.h"
#include "tests/support/network_fixture.h"
#include "tests/support/private_network.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <QTimer>

#include <functional>
#include <map>

/// Brings a Plus or Pro window to one of the ends of its process and prints what happened before.
/// What follows an end is never printed.
///
///     network_end_child plus|pro <scenario>

namespace {

void say(const QString& line) { QTextStream(stdout) << line << Qt::endl; }

class Scene {
public:
    explicit Scene(Switch_Model model) : at(model) {}

    void no_port() {
        at.ports.clear();
        at.robot.expect(choose_serial());
        expect_end();
        open();
    }

    void no_port_later() {
        at.ports.clear();
        at.robot.expect(close_dialog("Select_connection_method_Dialog"));
        open();
        at.robot.expect(choose_serial());
        expect_end();
        at.run_wizard();
    }

    void no_hardware() {
        at.adapter.go_offline();
        at.robot.expect(choose_network());
        expect_end();
        open();
    }

    void no_hardware_later() {
        open_network();
        at.adapter.go_offline();
        at.robot.expect(choose_network());
        expect_end();
        at.run_wizard();
    }

    void no_hardware_on_refresh() {
        at.robot.expect(choose_network());
        at.robot.expect({.class_name = "Select_hardware_Dialog",
                         .action = in_order({[this](QWidget&) {
                                                 at.adapter.go_offline();
                                                 return QString();
                                             },
                                             press_button("Refresh")})});
        expect_end();
        open();
    }

    void silent_after_on() {
        if (at.open_silent()) {
            say("window open");
        }
        expect_end();
        press_on();
        wait_for_end();
    }

    void silent_after_on_twice() {
        constexpr int pause = 1000;
        if (at.open_silent()) {
            say("window open");
        }
        at.robot.expect({.class_name = "QMessageBox", .action = [this](QWidget& box) {
                             say(at.robot.snapshots().last().to_string());
                             // So that it is not mistaken for the second one.
                             box.setObjectName("first");
                             return QString();
                         }});
        expect_end();
        press_on();
        QTimer::singleShot(pause, &at.window(),
                           [this] { at.button("pushButton_ON_Connection").click(); });
        wait_for_end();
    }

    void off_within_the_seven_seconds() {
        open_network();
        at.button("pushButton_OFF_Connection").click();
        expect_end();
        press_on();
        if (at.wait_connected()) {
            say("green");
        }
        at.button("pushButton_OFF_Connection").click();
        wait_for_end();
    }

    void adapter_not_back() {
        Adapter_Faults faults;
        faults.never_comes_back = true;
        at.adapter.unit().set_faults(faults);
        at.robot.set_patience(std::chrono::seconds(30));
        at.expect_network_path(3);
        at.robot.expect({.class_name = "IP_Settings_Dialog",
                         .action = in_order({press_object("radioButton_Static"),
                                             press_object("pushButton_Apply_IP")})});
        // Its settings can't be read any more, but the change counts as done.
        expect_warning(at.robot, "Get static IP error");
        expect_warning(at.robot, "Get subnet mask error");
        expect_warning(at.robot, "Get gateway error");
        expect_information(at.robot, "The IP was applied successfully");
        at.robot.expect(connect_adapter());
        expect_end();
        open();
    }

    void stalled_connection() {
        at.expect_network_path(3);
        const auto stall = [this](QWidget&) {
            ::stalled_connection::stall_next();
            since_on.start();
            return QString();
        };
        at.robot.expect({.class_name = "IP_Settings_Dialog",
                         .action = in_order({stall, press_object("pushButton_Connect")})});
        expect_end();
        open();
    }

    void on_without_an_adapter() {
        at.robot.expect(choose_network());
        at.robot.expect(close_dialog("Select_hardware_Dialog"));
        open();
        expect_end();
        press_on();
    }

    void hotkey_before_a_layout_is_read_back() {
        open_network();
        at.silence_switch();
        at.adapter.send_from_switch("Saving horizontal dimension as 4\n");
        say(at.take_commands(1).join(' '));
        at.adapter.send_from_switch("**C 2\n");
        wait_for_end();
    }

    /// The failures that the robot has recorded.
    QString failures() const { return at.robot.failures().join('\n'); }

private:
    void open() {
        at.open();
        say("window open");
    }

    void open_network() {
        if (at.open_network()) {
            say("window open");
        }
    }

    void press_on() {
        since_on.start();
        at.button("pushButton_ON_Connection").click();
    }

    /// The next box is the last one.
    void expect_end() {
        at.robot.expect(
            {.class_name = "QMessageBox", .object_name = QString(), .action = [this](QWidget& box) {
                 say(at.robot.snapshots().last().to_string());
                 if (since_on.isValid()) {
                     say(QString("after %1").arg(since_on.elapsed()));
                 }
                 return press_button("OK")(box);
             }});
    }

    static void wait_for_end() {
        constexpr int longest = 30'000;
        Network_Fixture::settle(longest);
    }

    Network_Fixture at;
    QElapsedTimer since_on;
};

const std::map<QString, void (Scene::*)()> scenarios = {
    {"no-port", &Scene::no_port},
    {"no-port-later", &Scene::no_port_later},
    {"no-hardware", &Scene::no_hardware},
    {"no-hardware-later", &Scene::no_hardware_later},
    {"no-hardware-on-refresh", &Scene::no_hardware_on_refresh},
    {"hotkey-before-a-layout-is-read-back", &Scene::hotkey_before_a_layout_is_read_back},
    {"silent-after-on", &Scene::silent_after_on},
    {"silent-after-on-twice", &Scene::silent_after_on_twice},
    {"off-within-the-seven-seconds", &Scene::off_within_the_seven_seconds},
    {"adapter-not-back", &Scene::adapter_not_back},
    {"stalled-connection", &Scene::stalled_connection},
    {"on-without-an-adapter", &Scene::on_without_an_adapter},
};

} // namespace

int main(int argc, char** argv) {
    return run_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        const QStringList arguments = QApplication::arguments();
        const auto scenario = scenarios.find(arguments.value(2));
        if (scenario == scenarios.end()) {
            say("no such scenario");
            return 2;
        }
        Scene scene(arguments.value(1) == "pro" ? Switch_Model::pro : Switch_Model::plus);
        (scene.*(scenario->second))();
        say("the process went on");
        say(scene.failures());
        return 0;
    });
}
