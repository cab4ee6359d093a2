// SPDX-License-Identifier: MIT

#pragma once

#include "link/command_encoding.h"

#include <QString>

#include <string>
#include <string_view>

class Link_Transport;
struct Session_State;

/// Sends commands to the switch. A command is done when it has been written to the link: there is
/// no acknowledgement and no flow control.
class Command_Writer {
public:
    /// @param report_failure writes the text of a failure to the log and shows it.
    /// @param asks_for_audio the model has an audio state, queried at every start and refresh.
    Command_Writer(Session_State& session_state, Link_Transport& link_transport,
                   Command_Encoder::Failure_Report report_failure, bool asks_for_audio);

    /// Sends one command and its carriage return, which is appended to the caller's own text, a
    /// temporary's too.
    /// Silently dropped while no link is open or write_enabled is false. A failure is reported as
    /// "Write data error".
    void writeCommand(std::string& command);
    void writeCommand(std::string&& command);
    void writeCommand(const QString& command);
    void writeCommand(std::string_view command);

    /// Sends bytes to the serial port unchanged, for any chosen method, without checking the guard
    /// and without a carriage return.
    void writeData(const QByteArray& data);

    /// Sends a text and its carriage return without the guard of writeCommand.
    void write_unguarded(QString& text);

    /// Ask for the status, the information and the layout report. The flags that wait for the
    /// answers are set even if the guard drops the command.
    void send_initial_command();
    void send_information_command();
    void send_current_layout_command();
    void send_audio_query();

    /// Sends what every connection and every refresh begins with: the three queries, and the one
    /// for the audio if the model has audio.
    void send_start_commands();

private:
    Session_State& state;
    Link_Transport& transport;
    Command_Encoder::Failure_Report report_failure;
    Command_Encoder encoder;
    bool has_audio;
};
