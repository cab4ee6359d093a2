// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

/// Receives what the reply dispatcher finds.
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
    /// Writes a failure to the log and shows it.
    virtual void report_failure(const std::string& text) = 0;
};
