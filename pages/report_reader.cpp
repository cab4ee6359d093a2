#include "pages/report_reader.h"

#include "link/flag_guard.h"
#include "link/report_values.h"
#include "link/switch_protocol.h"

Report_Reader::Report_Reader(Session_State& link_state, Configuration_Page& configuration_page,
                             Mouse_Speed_Page& mouse_speed_page, Layout_Page& layout_page)
    : state(link_state),
      configuration(configuration_page),
      mouse_speed(mouse_speed_page),
      layout(layout_page) {}

void Report_Reader::apply_information_report() {
    const std::string& report = state.info_buff;
    if (report.empty()) {
        return;
    }
    configuration.set_hotkey_trigger(get_report_value(switch_protocol::hotkey_trigger_key, report));
    const std::string km_channel = get_report_value(switch_protocol::km_control_key, report);
    if (km_channel != no_value) {
        configuration.set_km_channel(km_channel);
    }
    const std::string usb_channel = get_report_value(switch_protocol::usb_control_key, report);
    if (usb_channel != no_value) {
        configuration.set_usb_channel(usb_channel);
    }
    configuration.set_mouse_parking(get_report_token(switch_protocol::parking_x_key, report),
                                    get_report_value(switch_protocol::parking_y_key, report));
}

void Report_Reader::apply_status_report() {
    const std::string& report = state.status_buff;
    if (report.empty()) {
        return;
    }
    state.ui_changes_enabled = false;
    const std::int64_t port_limit =
        std::stoi(get_report_value(switch_protocol::port_limit_key, report));
    layout.set_active_ports(port_limit - 1);
    configuration.set_cursor_roll_from_value(
        get_report_value(switch_protocol::cursor_roll_key, report));
    configuration.set_mouse_mode_from_value(
        get_report_value(switch_protocol::mouse_mode_key, report));
    for (const std::string_view key : switch_protocol::custom_keys) {
        mouse_speed.add_custom_setting_name(get_report_value(key, report), name_offset_in_report);
    }
    for (int number = 1; number <= channel_count; ++number) {
        mouse_speed.set_custom_label(
            number, get_report_value(switch_protocol::custom_keys[number - 1], report));
    }
    mouse_speed.set_channels_resolution();
    configuration.set_buzzer_from_value(get_report_value(switch_protocol::buzzer_key, report));
    mouse_speed.show_current_custom_setting();
}

std::optional<std::string> Report_Reader::parse_both_notice(const std::string& text) {
    const std::string channel = get_report_value(switch_protocol::both_notice, text);
    if (channel == no_value) {
        return std::nullopt;
    }
    const Flag_Guard silent(state.ui_changes_enabled, false);
    configuration.set_usb_channel(channel);
    configuration.set_km_channel(channel);
    state.buff_clear_pending = true;
    return channel;
}

void Report_Reader::parse_km_notice(const std::string& text) {
    if (text.find(switch_protocol::resolution_answer) != std::string::npos) {
        return;
    }
    parse_channel_notice(
        {switch_protocol::km_notice, switch_protocol::km_control_key}, text,
        [this](const std::string& channel) { configuration.set_km_channel(channel); });
}

void Report_Reader::parse_usb_notice(const std::string& text) {
    parse_channel_notice(
        {switch_protocol::usb_notice, switch_protocol::usb_control_notice}, text,
        [this](const std::string& channel) { configuration.set_usb_channel(channel); });
}

void Report_Reader::parse_channel_notice(const std::array<std::string_view, 2>& keys,
                                         const std::string& text,
                                         const Channel_Setter& set_channel) {
    for (const std::string_view key : keys) {
        const std::string channel = get_report_value(key, text);
        if (channel != no_value) {
            const Flag_Guard silent(state.ui_changes_enabled, false);
            set_channel(channel);
            state.buff_clear_pending = true;
        }
    }
}
