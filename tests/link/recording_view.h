// SPDX-License-Identifier: MIT

#pragma once

#include "link/session_view.h"

#include <QStringList>

#include <functional>

/// Records what a session or its dispatcher reports to the window, in order, one text each:
/// "answered", "show:...", "information", "status", "layout", "both:...", "km:...", "usb:...",
/// "audio:...", "disconnected", "disable", "clear", "remove", "adapter:...", "end:...". Failures
/// are shown and logged as the windows do it.
class Recording_View : public Session_View {
public:
    /// Called with each record right after it was stored; may throw, as the readers of a window
    /// may.
    std::function<void(const QString& record)> on_record;

    QStringList records;

    /// The records that begin with a word, without it: "show" gives the texts shown.
    [[nodiscard]] QStringList texts_of(const QString& word) const;

    void switch_answered() override;
    void show_reply(const QString& chunk) override { keep("show:" + chunk); }
    void apply_information_report() override { keep("information"); }
    void apply_status_report() override { keep("status"); }
    void set_layout_from_report() override { keep("layout"); }
    void parse_both_notice(const std::string& text) override { keep_text("both:", text); }
    void parse_km_notice(const std::string& text) override { keep_text("km:", text); }
    void parse_usb_notice(const std::string& text) override { keep_text("usb:", text); }
    void apply_audio_reply(const std::string& text) override { keep_text("audio:", text); }
    void report_failure(const std::string& text) override;
    void set_disconnected_indicator() override;
    [[nodiscard]] bool shows_connected() const override { return connected; }
    void disable_controls() override { keep("disable"); }
    void clear_terminal() override { keep("clear"); }
    void remove_custom_setting_items() override { keep("remove"); }
    void show_adapter(const QString& address) override { keep("adapter:" + address); }
    void end_process(const QString& reason) override { keep("end:" + reason); }

private:
    void keep(const QString& record);
    void keep_text(const QString& word, const std::string& text);

    bool connected = false;
};
