// SPDX-License-Identifier: MIT

#include "link/command_writer.h"

#include "link/link_transport.h"
#include "link/session_state.h"
#include "link/switch_protocol.h"

#include <utility>

Command_Writer::Command_Writer(Session_State& session_state, Link_Transport& link_transport,
                               Command_Encoder::Failure_Report failure_report, bool asks_for_audio)
    : state(session_state),
      transport(link_transport),
      report_failure(std::move(failure_report)),
      encoder(report_failure),
      has_audio(asks_for_audio) {}

void Command_Writer::writeCommand(std::string& command) {
    if (!transport.is_open() || !state.write_enabled) {
        return;
    }
    try {
        transport.write(encoder.string_to_bytes(command));
    } catch (...) {
        report_failure("Write data error");
    }
}

// A named reference: the carriage return goes into the caller's text here as well.
void Command_Writer::writeCommand(std::string&& command) { writeCommand(command); }

void Command_Writer::writeCommand(const QString& command) {
    writeCommand(command.toUtf8().toStdString());
}

void Command_Writer::writeCommand(std::string_view command) { writeCommand(std::string(command)); }

void Command_Writer::writeData(const QByteArray& data) { transport.write_to_port(data); }

void Command_Writer::write_unguarded(QString& text) {
    transport.write(encoder.qstring_to_bytes(text));
}

void Command_Writer::send_initial_command() {
    state.report_in_progress = true;
    writeCommand(switch_protocol::status_query);
}

void Command_Writer::send_information_command() {
    state.info_report_pending = true;
    writeCommand(switch_protocol::information_query);
}

void Command_Writer::send_current_layout_command() {
    state.layout_report_pending = true;
    writeCommand(switch_protocol::layout_query);
}

void Command_Writer::send_audio_query() { writeCommand(switch_protocol::audio_query); }

void Command_Writer::send_start_commands() {
    send_initial_command();
    send_information_command();
    send_current_layout_command();
    if (has_audio) {
        send_audio_query();
    }
}
