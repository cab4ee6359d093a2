// SPDX-License-Identifier: MIT

#pragma once

#include "link/command_writer.h"
#include "link/link_transport.h"
#include "link/session_state.h"
#include "sim/pty_port.h"

#include <QByteArray>
#include <QObject>

/// A serial line with the tool's link at one end and a device that only listens at the other.
class Open_Line : public QObject {
    Q_OBJECT

public:
    /// Opens the port and raises write_enabled, as a window does when it starts.
    /// @param asks_for_audio as a Pro does.
    explicit Open_Line(bool asks_for_audio = false);
    ~Open_Line() override;
    Open_Line(const Open_Line&) = delete;
    Open_Line& operator=(const Open_Line&) = delete;

    /// What the device has received, complete up to this call: a mark is sent after it, past the
    /// write guard, and its arrival is awaited. Each call returns only what came since the call
    /// before.
    QByteArray received();

    /// The name by which the port list shows the line, such as "pts/7".
    [[nodiscard]] QString port_name() const;

    Pty_Port device;
    Session_State state;
    Link_Transport devices;
    Command_Writer writer;

private:
    /// A second descriptor of the line. Opened first, because the tool takes exclusive access.
    int second_descriptor;
    QByteArray all_received;
};
