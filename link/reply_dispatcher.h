#pragma once

#include "link/command_writer.h"
#include "link/session_state.h"

#include <QByteArray>
#include <QObject>

#include <string>

/// What the reply stream hands its findings to.
class Reply_Handler {
public:
    virtual ~Reply_Handler() = default;

    /// A switch has answered on this link.
    virtual void switch_answered() = 0;
    /// Text for the terminal, in the order of arrival; may be empty.
    virtual void show_reply(const QString& chunk) = 0;
    /// Apply a complete report from the buffers; each may throw.
    virtual void apply_information_report() = 0;
    virtual void apply_status_report() = 0;
    virtual void set_layout_from_report() = 0;
    /// Look for notices of a channel change in a text.
    virtual void parse_both_notice(const std::string& text) = 0;
    virtual void parse_km_notice(const std::string& text) = 0;
    virtual void parse_usb_notice(const std::string& text) = 0;
    /// Look for an audio state in a text; nothing on a model without audio.
    virtual void apply_audio_reply(const std::string& text) = 0;
};

/// The order in which the readers look through a chunk from the network.
enum class Notice_Order { layout_first, both_first };

/// Gathers the switch's free text, acts on what must be acted on at once, and decides when a report
/// is complete: on the serial line when 1000 ms have passed since its first chunk, for nothing in
/// the text ends it; on the network at the first chunk.
class Reply_Dispatcher {
public:
    /// From the first chunk of a report to its parsing, and from the confirmation of a new layout
    /// to its reading: the unit answers all questions within this time.
    static constexpr int report_wait_ms = 1000;
    /// The buffer is emptied before a chunk if it holds more characters than this.
    static constexpr qsizetype buffer_limit = 1000;

    /// @param window the object whose slots get_data_from_TQL_by_serial_port() and
    ///        set_current_layout_from_buff() the timers call.
    Reply_Dispatcher(Session_State& link_state, Command_Writer& command_writer,
                     Reply_Handler& receiver, QObject& window, Notice_Order network_order);

    /// One chunk from the serial line. Text behind a NUL byte is lost.
    void take_serial_chunk(const QByteArray& raw);
    /// One chunk from the network, taken for a whole report.
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
    Reply_Handler& target;
    QObject& timer_target;
    Notice_Order notice_order;
};
