// SPDX-License-Identifier: MIT

#include "tests/support/modal_robot.h"
#include "windows/halvern_velmoran_lite.h"

#include <QApplication>
#include <QMainWindow>

#include <iostream>

namespace {

bool is_main_window_visible() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<const QMainWindow*>(window) != nullptr && window->isVisible()) {
            return true;
        }
    }
    return false;
}

} // namespace

/// Runs a Lite window as the tool does, for a test that watches how the process ends. Answers the
/// first message box and prints what it looked like.
int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    Modal_Robot robot;
    robot.expect({.class_name = "QMessageBox", .action = [&robot](QWidget& box) {
                      std::cout << robot.snapshots().first().to_string().toStdString() << '\n'
                                << (is_main_window_visible() ? "over a window" : "alone")
                                << std::endl;
                      return press_button("OK")(box);
                  }});
    Halvern_Velmoran_LITE window;
    std::cout << "window made" << std::endl;
    window.show();
    return QApplication::exec();
}
