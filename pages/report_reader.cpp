// SPDX-License-Identifier: MIT

#include "pages/report_reader.h"

#include "link/channels.h"
#include "link/custom_setting.h"
#include "link/flag_guard.h"
#include "link/report_values.h"
#include "link/switch_protocol.h"
#include "link/switch_session.h"
#include "pages/audio_panel.h"
#include "pages/configuration_page.h"
#include "pages/layout_page.h"
#include "pages/mouse_speed_page.h"

#include <cstdint>

Report_Reader::Report_Reader(Switch_Session& switch_session, const Pages& all_pages)
    : session(switch_session), pages(all_pages) {}

template <class Channel_Setter>
void Report_Reader::parse_channel_notice(const std::array<std::string_view, 2>& keys,
                                         const std::string& text,
                                         const Channel_Setter& set_channel) {
    for (const std::string_view key : keys) {
        const std::string channel = get_report_value(key, text);
        if (channel != no_value) {
            const Flag_Guard silent(session.state.ui_changes_enabled, false);
            set_channel(channel);
            session.state.buff_clear_pending = true;
        }
    }
}

void Report_Reader::apply_information_report() {
    const std::string& report = session.state.info_buff;
    if (report.empty()) {
        return;
    }
    pages.configuration.set_hotkey_trigger(
        get_report_value(switch_protocol::hotkey_trigger_key, report));
    const std::string km_channel = get_report_value(switch_protocol::km_control_key, report);
    if (km_channel != no_value) {
        pages.configuration.set_km_channel(km_channel);
    }
    const std::string usb_channel = get_report_value(switch_protocol::usb_control_key, report);
    if (usb_channel != no_value) {
        pages.configuration.set_usb_channel(usb_channel);
    }
    pages.configuration.set_mouse_parking(get_report_token(switch_protocol::parking_x_key, report),
                                          get_report_value(switch_protocol::parking_y_key, report));
}

void Report_Reader::apply_status_report() {
    const std::string& report = session.state.status_buff;
    if (report.empty()) {
        return;
    }
    session.state.ui_changes_enabled = false;
    const std::int64_t port_limit =
        std::stoi(get_report_value(switch_protocol::port_limit_key, report));
    pages.layout.set_active_ports(port_limit - 1);
    pages.configuration.set_cursor_roll_from_value(
        get_report_value(switch_protocol::cursor_roll_key, report));
    pages.configuration.set_mouse_mode_from_value(
        get_report_value(switch_protocol::mouse_mode_key, report));
    for (const std::string_view key : switch_protocol::custom_keys) {
        pages.mouse_speed.add_custom_setting_name(find_custom_setting(key, report),
                                                  name_offset_in_report);
    }
    for (int number = 1; number <= channel_count; ++number) {
        pages.mouse_speed.set_custom_label(
            number, get_report_value(switch_protocol::custom_keys[number - 1], report));
    }
    pages.mouse_speed.set_channels_resolution();
    pages.configuration.set_buzzer_from_value(
        get_report_value(switch_protocol::buzzer_key, report));
    pages.mouse_speed.show_current_custom_setting();
}

void Report_Reader::parse_both_notice(const std::string& text) {
    const std::string channel = get_report_value(switch_protocol::both_notice, text);
    if (channel == no_value) {
        return;
    }
    {
        const Flag_Guard silent(session.state.ui_changes_enabled, false);
        pages.configuration.set_usb_channel(channel);
        pages.configuration.set_km_channel(channel);
        session.state.buff_clear_pending = true;
    }
    if (pages.audio != nullptr) {
        pages.audio->parse_audio_state(channel);
    }
}

void Report_Reader::parse_km_notice(const std::string& text) {
    if (text.find(switch_protocol::resolution_answer) != std::string::npos) {
        return;
    }
    parse_channel_notice(
        {switch_protocol::km_notice, switch_protocol::km_control_key}, text,
        [this](const std::string& channel) { pages.configuration.set_km_channel(channel); });
}

void Report_Reader::parse_usb_notice(const std::string& text) {
    parse_channel_notice(
        {switch_protocol::usb_notice, switch_protocol::usb_control_notice}, text,
        [this](const std::string& channel) { pages.configuration.set_usb_channel(channel); });
}

void Report_Reader::apply_audio_reply(const std::string& text) {
    if (pages.audio != nullptr) {
        pages.audio->apply_audio_reply(text);
    }
}
