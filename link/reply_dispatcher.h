// SPDX-License-Identifier: MIT

#pragma once

#include "link/session_traits.h"

#include <QtGlobal>

#include <string>

class Command_Writer;
class QByteArray;
class QObject;
class Reply_Handler;
struct Session_State;

/// Collects the switch's free text, handles what must be handled at once, and decides when a report
/// is complete: on the serial line 1000 ms after its first chunk, because nothing in the text marks
/// its end; on the network with the first chunk.
class Reply_Dispatcher {
public:
    /// From the first chunk of a report to its parsing, and from the confirmation of a new layout
    /// to its reading: the unit answers all questions within this time.
    static constexpr int report_wait_ms = 1000;
    /// The buffer is cleared before a chunk is added if it has more characters than this.
    static constexpr qsizetype buffer_limit = 1000;

    /// @param window the object whose slots get_data_from_TQL_by_serial_port() and
    ///        set_current_layout_from_buff() the timers call.
    Reply_Dispatcher(Session_State& session_state, Command_Writer& command_writer,
                     Reply_Handler& reply_handler, QObject& window, Notice_Order network_order);

    /// One chunk from the serial line. Text after a NUL byte is lost.
    void take_serial_chunk(const QByteArray& raw);
    /// One chunk from the network, treated as a whole report.
    void take_network_chunk(const QByteArray& raw);

    /// The serial report counts as complete: all three reports are read from the one buffer.
    void get_data_from_TQL_by_serial_port();
    /// The new layout has been reported. Nothing here catches what a bad layout text throws.
    void set_current_layout_from_buff();

private:
    bool find_connected_marker(const std::string& chunk);
    void check_layout_saved(const std::string& text);
    void set_data_from_buffers();
    void apply_network_reports(const std::string& chunk);
    void start_pending_timers();
    void empty_buffer_after_notice();

    Session_State& state;
    Command_Writer& writer;
    Reply_Handler& handler;
    QObject& timer_target;
    Notice_Order notice_order;
};
