// SPDX-License-Identifier: MIT

#include "pages/audio_panel.h"

#include "link/report_values.h"
#include "link/switch_protocol.h"
#include "link/switch_session.h"

#include <QCheckBox>

Audio_Panel::Audio_Panel(const Audio_Widgets& panel_widgets, Switch_Session& switch_session)
    : widgets(panel_widgets), session(switch_session) {}

void Audio_Panel::all_clicked() {
    if (widgets.checkBox_ALL.isChecked()) {
        widgets.checkBox_FOLLOW.setChecked(false);
        uncheck_audio_channels();
    }
}

void Audio_Panel::follow_clicked() {
    if (widgets.checkBox_FOLLOW.isChecked()) {
        widgets.checkBox_ALL.setChecked(false);
        uncheck_audio_channels();
    } else {
        enable_audio_channels();
    }
}

void Audio_Panel::channel_clicked() {
    widgets.checkBox_ALL.setChecked(false);
    widgets.checkBox_FOLLOW.setChecked(false);
}

void Audio_Panel::submit() { session.writer.writeCommand(get_audio_command()); }

bool Audio_Panel::parse_audio_state(std::string_view text) {
    const Audio_Reading reading = read_audio_state(text);
    if (reading.state) {
        show_state(*reading.state);
    }
    return reading.recognised;
}

void Audio_Panel::apply_audio_reply(std::string_view text) {
    for (const std::string_view key : switch_protocol::audio_answers) {
        if (parse_audio_state(find_rest_behind(key, text))) {
            return;
        }
    }
}

void Audio_Panel::uncheck_audio_channels() {
    for (QCheckBox* box : widgets.channels) {
        box->setCheckState(Qt::Unchecked);
    }
}

void Audio_Panel::enable_audio_channels() {
    for (QCheckBox* box : widgets.channels) {
        box->setEnabled(true);
    }
}

Audio_State Audio_Panel::shown_state() const {
    Audio_State state;
    state.all = widgets.checkBox_ALL.isChecked();
    state.follow = widgets.checkBox_FOLLOW.isChecked();
    for (std::size_t i = 0; i < widgets.channels.size(); ++i) {
        state.channels[i] = widgets.channels[i]->isChecked();
    }
    return state;
}

void Audio_Panel::show_state(const Audio_State& state) {
    widgets.checkBox_ALL.setChecked(state.all);
    widgets.checkBox_FOLLOW.setChecked(state.follow);
    for (std::size_t i = 0; i < widgets.channels.size(); ++i) {
        widgets.channels[i]->setChecked(state.channels[i]);
    }
}
