// SPDX-License-Identifier: MIT

#pragma once

#include "link/audio_state.h"
#include "pages/page_widgets.h"

#include <string>
#include <string_view>

class Switch_Session;

/// The Pro's audio routing. The check boxes are the state; a change is only shown on the screen
/// until Audio Submit sends it. All, Follow and the channels exclude each other.
class Audio_Panel {
public:
    Audio_Panel(const Audio_Widgets& panel_widgets, Switch_Session& switch_session);

    // The user's clicks; the check box has already toggled.
    void all_clicked();
    void follow_clicked();
    void channel_clicked();
    void submit();

    /// "//a 0", "//a f", "//a 1 3", "//a x"; All wins over Follow, and both over the channels.
    [[nodiscard]] QString get_audio_command() const { return audio_command(shown_state()); }
    /// The state as a settings file records it.
    [[nodiscard]] QString get_audio_state_text() const { return audio_state_text(shown_state()); }

    /// Shows the state that a text names. A text without content leaves the boxes as they are, an
    /// unknown one clears them.
    /// @return whether the text was understood.
    bool parse_audio_state(std::string_view text);
    /// Shows the state after the first of the switch's audio marks that is followed by one.
    void apply_audio_reply(std::string_view text);

private:
    void uncheck_audio_channels();
    void enable_audio_channels();
    [[nodiscard]] Audio_State shown_state() const;
    void show_state(const Audio_State& state);

    Audio_Widgets widgets;
    Switch_Session& session;
};
