// SPDX-License-Identifier: MIT

#include "tests/support/fast_network.h"
#include "tests/support/find_child.h"
#include "tests/support/modal_robot.h"
#include "tests/support/private_network.h"
#include "tests/support/raw_sender.h"
#include "usr/select_hardware_dialog.h"

#include <QApplication>
#include <QPushButton>
#include <QTextStream>

/// Creates a hardware dialog in a network without adapters, as its argument says:
///   construct  there are none from the start
///   refresh    they are gone when Refresh is pressed
///   port       the search port is used by another program
/// and prints what becomes visible. What follows the process's end is never printed.

namespace {

void say(const QString& line) { QTextStream(stdout) << line << Qt::endl; }

class Talkative_Window : public QWidget {
public:
    ~Talkative_Window() override { say("a window was destroyed"); }
};

void run(const QString& what) {
    Fast_Network network;
    QUdpSocket other_program;
    if (what == "port") {
        network.add_adapter();
        other_program.bind(QHostAddress::AnyIPv4, search_port);
    }
    if (what == "refresh") {
        network.add_adapter();
    }
    Select_hardware_Dialog dialog;
    say("the dialog was made");
    if (what == "refresh") {
        network.adapters().front()->go_offline();
        find_child<QPushButton>(dialog, "pushButton_Refresh").click();
    }
}

} // namespace

int main(int argc, char** argv) {
    return run_in_private_network(argc, argv, [](int count, char** values) {
        const QApplication application(count, values);
        const Talkative_Window window;
        Modal_Robot robot;
        robot.expect({.action = in_order({[&](QWidget&) {
                                              say(robot.snapshots().last().to_string());
                                              return QString();
                                          },
                                          press_button("OK")})});
        run(QApplication::arguments().value(1));
        say("the process went on");
        return 0;
    });
}
