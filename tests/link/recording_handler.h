#pragma once

#include "link/reply_dispatcher.h"

#include <QStringList>

#include <functional>

/// Takes the findings of a reply stream and keeps them in their order, one text each:
/// "answered", "show:...", "information", "status", "layout", "both:...", "km:...", "usb:...",
/// "audio:...".
class Recording_Handler : public Reply_Handler {
public:
    /// Called with each record right after it was kept; may throw, as the readers of a window may.
    std::function<void(const QString& record)> on_record;

    QStringList records;

    /// The records that begin with a word, without it: "show" gives the texts shown.
    [[nodiscard]] QStringList texts_of(const QString& word) const;

    void switch_answered() override { keep("answered"); }
    void show_reply(const QString& chunk) override { keep("show:" + chunk); }
    void apply_information_report() override { keep("information"); }
    void apply_status_report() override { keep("status"); }
    void set_layout_from_report() override { keep("layout"); }
    void parse_both_notice(const std::string& text) override { keep_text("both:", text); }
    void parse_km_notice(const std::string& text) override { keep_text("km:", text); }
    void parse_usb_notice(const std::string& text) override { keep_text("usb:", text); }
    void apply_audio_reply(const std::string& text) override { keep_text("audio:", text); }

private:
    void keep(const QString& record);
    void keep_text(const QString& word, const std::string& text);
};
