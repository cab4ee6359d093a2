// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/modal_robot.h"

/// Expects a message box with the common look and this text as the next modal widget, and presses
/// OK.
inline void expect_box(Modal_Robot& robot, QMessageBox::Icon icon, const QString& text) {
    robot.expect({.class_name = "QMessageBox",
                  .title = "Information",
                  .text = text,
                  .icon = icon,
                  .buttons = QStringList("OK"),
                  .action = press_button("OK")});
}

inline void expect_warning(Modal_Robot& robot, const QString& text) {
    expect_box(robot, QMessageBox::Warning, text);
}

inline void expect_information(Modal_Robot& robot, const QString& text) {
    expect_box(robot, QMessageBox::Information, text);
}
