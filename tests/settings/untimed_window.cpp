// SPDX-License-Identifier: MIT

#include "tests/settings/untimed_window.h"

#include "pages/model_traits.h"
#include "sim/port_list.h"
#include "tests/support/find_child.h"
#include "tests/support/wait_until.h"

#include <QTextEdit>

Untimed_Window::Untimed_Window() : Bare_Window(lite_model, Timers::ended_by_test) {
    list_ports({device.device_name()});
    controller().layout.set_up_table();
    controller().layout.set_default_layout();
    controller().session.state.write_enabled = true;
    controller().menu.list_serial_ports();
    controller().session.open_serial_port(controller().menu.port_name());
}

Untimed_Window::~Untimed_Window() { controller().session.close_device(); }

bool Untimed_Window::read_unit() {
    controller().session.refresh_UI();
    // The layout is the last line of the answers.
    const bool complete = wait_until([this] {
        const QString& gathered = controller().session.state.received_buff;
        const qsizetype layout = gathered.indexOf("//FF");
        return layout >= 0 && gathered.indexOf('\n', layout) >= 0;
    });
    controller().session.replies.get_data_from_TQL_by_serial_port();
    return complete;
}

bool Untimed_Window::wait_until_obeyed() {
    const std::string marker = "//marker";
    device.clear_record();
    controller().terminal.clear();
    controller().session.writer.writeCommand(std::string(marker));
    // A notice may have emptied the reply buffer; the terminal shows every answer. The tool reads
    // back a layout confirmed meanwhile, which is answered after the marker.
    return wait_until([&] {
        return device.received_commands().contains(QByteArray::fromStdString(marker)) &&
               device.all_sent() &&
               find_child<QTextEdit>(*this, "textEdit_Main_Terminal")
                   .toPlainText()
                   .contains("Not understood.\n");
    });
}

QWidget& Untimed_Window::widget(const QString& name) const {
    return find_child<QWidget>(*this, name);
}
