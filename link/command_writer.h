// SPDX-License-Identifier: MIT

#pragma once

#include "link/command_encoding.h"

#include <QString>

#include <string>
#include <string_view>

class Link_Transport;
struct Session_State;

/// The way to the switch. A command counts as done when it has been handed to the link: nothing
/// acknowledges it, nothing paces it.
class Command_Writer {
public:
    /// @param report_failure takes a failure's text to the log and the user.
    /// @param asks_for_audio the model has an audio state to ask for at every start and refresh.
    Command_Writer(Session_State& session_state, Link_Transport& link_transport,
                   Command_Encoder::Failure_Report report_failure, bool asks_for_audio);

    /// Sends one command and its carriage return, which is appended to the caller's own text, a
    /// temporary's too.
    /// Dropped in silence while no link is open or write_enabled is false. A failure ends in
    /// "Write data error".
    void writeCommand(std::string& command);
    void writeCommand(std::string&& command);
    void writeCommand(const QString& command);
    void writeCommand(std::string_view command);

    /// Sends bytes to the serial port as they are, whatever the chosen method: no guard, no
    /// carriage return.
    void writeData(const QByteArray& data);

    /// Sends a text and its carriage return past the guard of writeCommand.
    void write_unguarded(QString& text);

    /// Ask for the status, the information and the layout report. The flags that await the
    /// answers rise even if the guard drops the command.
    void send_initial_command();
    void send_information_command();
    void send_current_layout_command();
    void send_audio_query();

    /// What every connection and every refresh begins with: the three questions back to back, and
    /// the one for the audio where the model has any.
    void send_start_commands();

private:
    Session_State& state;
    Link_Transport& transport;
    Command_Encoder::Failure_Report report_failure;
    Command_Encoder encoder;
    bool has_audio;
};
