// SPDX-License-Identifier: MIT

#include "tests/link/open_line.h"

#include "app/message_box.h"
#include "tests/support/wait_until.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr char end_mark[] = "<end>";

} // namespace

Open_Line::Open_Line(bool asks_for_audio)
    : writer(state, devices, report_failure, asks_for_audio),
      second_descriptor(::open(qPrintable(device.device_name()), O_WRONLY | O_NOCTTY | O_CLOEXEC)) {
    connect(&device, &Pty_Port::received, this,
            [this](const QByteArray& bytes) { all_received += bytes; });
    devices.open_port(port_name());
    state.write_enabled = true;
}

Open_Line::~Open_Line() { ::close(second_descriptor); }

QByteArray Open_Line::received() {
    // The port writes its bytes while events are processed; only then the mark may follow.
    const auto handed_over = [this] {
        const QSerialPort* port = devices.get_serial_port();
        return port == nullptr || !port->isOpen() || port->bytesToWrite() == 0;
    };
    const bool complete = wait_until(handed_over) &&
                          ::write(second_descriptor, end_mark, sizeof(end_mark) - 1) > 0 &&
                          wait_until([this] { return all_received.endsWith(end_mark); });
    const QByteArray bytes =
        complete ? all_received.chopped(sizeof(end_mark) - 1) : "the mark is lost";
    all_received.clear();
    return bytes;
}

QString Open_Line::port_name() const { return device.device_name().mid(QString("/dev/").size()); }
