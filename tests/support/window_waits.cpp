// SPDX-License-Identifier: MIT

#include "tests/support/window_waits.h"

#include "tests/support/virtual_time.h"

using std::chrono::duration_cast;
using std::chrono::milliseconds;

milliseconds Window_Waits::second_scroll() {
    QTextEdit& terminal = window.terminal();
    terminal.moveCursor(QTextCursor::Start);
    return virtual_time::time_until([&] { return terminal.textCursor().atEnd(); });
}

Window_Waits::Lock_Out Window_Waits::refresh_lock_out() {
    QPushButton& refresh = window.button("pushButton_Refresh");
    refresh.click();
    // As an answer would.
    refresh.setEnabled(true);
    const milliseconds disabled = virtual_time::time_until([&] { return !refresh.isEnabled(); });
    const milliseconds enabled = virtual_time::time_until([&] { return refresh.isEnabled(); });
    return {.disabled = disabled, .enabled = disabled + enabled};
}

milliseconds Window_Waits::custom_entry() {
    window.combo("comboBox_number_of_setting").setCurrentIndex(1);
    window.line_edit(custom("lineEdit_Mouse_Movement_Name")).setText("BANK");
    window.line_edit(custom("lineEdit_Mouse_Movement_X")).setText("150");
    window.line_edit(custom("lineEdit_Mouse_Movement_Y")).setText("300");
    window.button(custom("pushButton_Submit_Custom_Mouse_Movement_Settings")).click();
    return virtual_time::time_until([this] { return !window.is_filled(); });
}

milliseconds Window_Waits::factory_reset(Modal_Robot& robot) {
    std::chrono::nanoseconds confirmed{0};
    robot.expect({.class_name = "Yes_No_Dialog", .action = [&confirmed](QWidget& dialog) {
                      confirmed = virtual_time::now();
                      return press_button("Confirm")(dialog);
                  }});
    window.button("pushButton_Factory_Reset").click();
    static_cast<void>(virtual_time::time_until([this] { return !window.is_filled(); }));
    return duration_cast<milliseconds>(virtual_time::now() - confirmed);
}

/// The Pro's form has other names for these widgets.
QString Window_Waits::custom(const QString& name) const {
    const bool has_plain_names = window.window().findChild<QWidget*>(name) != nullptr;
    return has_plain_names ? name : name + "_2";
}
