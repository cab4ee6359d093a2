// SPDX-License-Identifier: MIT

#include "link/reply_dispatcher.h"

#include "link/command_writer.h"
#include "link/flag_guard.h"
#include "link/reply_handler.h"
#include "link/report_values.h"
#include "link/session_state.h"
#include "link/switch_protocol.h"

#include <QByteArray>
#include <QTimer>

#include <algorithm>

namespace {

/// UTF-8 text up to the first NUL byte, as the unit ends its texts.
QString text_of(const QByteArray& raw) { return QString::fromUtf8(raw.constData()); }

} // namespace

Reply_Dispatcher::Reply_Dispatcher(Session_State& session_state, Command_Writer& command_writer,
                                   Reply_Handler& reply_handler, QObject& window,
                                   Notice_Order network_order)
    : state(session_state),
      writer(command_writer),
      handler(reply_handler),
      timer_target(window),
      notice_order(network_order) {}

void Reply_Dispatcher::take_serial_chunk(const QByteArray& raw) {
    const QString chunk = text_of(raw);
    find_connected_marker(chunk.toStdString());
    if (state.received_buff.size() > buffer_limit) {
        state.received_buff.clear();
    }
    state.received_buff += chunk;
    check_layout_saved(state.received_buff.toStdString());

    const std::string gathered = state.received_buff.toStdString();
    handler.parse_both_notice(gathered);
    handler.parse_km_notice(gathered);
    handler.parse_usb_notice(gathered);
    handler.show_reply(chunk);
    start_pending_timers();
    handler.apply_audio_reply(gathered);
    if (!state.report_in_progress) {
        empty_buffer_after_notice();
    }
}

void Reply_Dispatcher::take_network_chunk(const QByteArray& raw) {
    const QString text = text_of(raw);
    const std::string chunk = text.toStdString();
    if (find_connected_marker(chunk)) {
        handler.show_reply(text);
    }
    apply_network_reports(chunk);
    if (notice_order == Notice_Order::both_first) {
        handler.parse_both_notice(chunk);
    }
    check_layout_saved(chunk);
    handler.parse_km_notice(chunk);
    handler.parse_usb_notice(chunk);
    if (notice_order == Notice_Order::layout_first) {
        handler.parse_both_notice(chunk);
    }
    handler.apply_audio_reply(chunk);
}

void Reply_Dispatcher::get_data_from_TQL_by_serial_port() {
    state.info_buff = state.received_buff.toStdString();
    state.status_buff = state.info_buff;
    state.layout_buff = get_report_value(switch_protocol::layout_line, state.info_buff);
    state.info_report_pending = false;
    state.layout_report_pending = false;
    set_data_from_buffers();
    state.report_in_progress = false;
    empty_buffer_after_notice();
}

void Reply_Dispatcher::set_current_layout_from_buff() {
    state.layout_buff = state.received_buff.toStdString();
    state.layout_report_pending = false;
    handler.set_layout_from_report();
}

bool Reply_Dispatcher::find_connected_marker(const std::string& chunk) {
    if (state.km_connected) {
        return true;
    }
    const bool found =
        std::ranges::any_of(switch_protocol::connected_markers, [&chunk](std::string_view marker) {
            return chunk.find(marker) != std::string::npos;
        });
    if (!found) {
        return false;
    }
    state.km_connected = true;
    handler.switch_answered();
    state.status_buff = chunk;
    return true;
}

void Reply_Dispatcher::check_layout_saved(const std::string& text) {
    if (text.find(switch_protocol::layout_saved) == std::string::npos) {
        return;
    }
    state.layout_saved_pending = true;
    state.received_buff.clear();
    writer.send_current_layout_command();
}

void Reply_Dispatcher::set_data_from_buffers() {
    const Flag_Guard silent(state.ui_changes_enabled, false);
    try {
        handler.apply_information_report();
        handler.apply_status_report();
        handler.set_layout_from_report();
        state.received_buff.clear();
    } catch (...) {
        handler.report_failure("Setting data from TQL error");
        state.write_enabled = true;
        state.refresh_enabled = true;
    }
}

void Reply_Dispatcher::apply_network_reports(const std::string& chunk) {
    if (state.info_report_pending) {
        state.info_buff = chunk;
        state.info_report_pending = false;
    }
    if (!state.layout_report_pending) {
        return;
    }
    state.layout_buff = chunk;
    state.layout_report_pending = false;
    if (state.layout_saved_pending) {
        state.layout_saved_pending = false;
        handler.set_layout_from_report();
    } else {
        set_data_from_buffers();
    }
}

void Reply_Dispatcher::start_pending_timers() {
    if (state.info_report_pending) {
        state.info_report_pending = false;
        QTimer::singleShot(report_wait_ms, Qt::PreciseTimer, &timer_target,
                           SLOT(get_data_from_TQL_by_serial_port()));
    }
    if (state.layout_saved_pending) {
        state.layout_saved_pending = false;
        state.buff_clear_pending = false;
        QTimer::singleShot(report_wait_ms, Qt::PreciseTimer, &timer_target,
                           SLOT(set_current_layout_from_buff()));
    }
}

void Reply_Dispatcher::empty_buffer_after_notice() {
    if (state.buff_clear_pending) {
        state.received_buff.clear();
        state.buff_clear_pending = false;
    }
}
