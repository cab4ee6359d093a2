// SPDX-License-Identifier: MIT

#include "tests/link/recording_view.h"

#include "app/message_box.h"

QStringList Recording_View::texts_of(const QString& word) const {
    QStringList texts;
    for (const QString& record : records) {
        if (record.startsWith(word + ':')) {
            texts.append(record.mid(word.size() + 1));
        }
    }
    return texts;
}

void Recording_View::switch_answered() {
    connected = true;
    keep("answered");
}

void Recording_View::set_disconnected_indicator() {
    connected = false;
    keep("disconnected");
}

void Recording_View::report_failure(const std::string& text) { ::report_failure(text); }

void Recording_View::keep(const QString& record) {
    records.append(record);
    if (on_record) {
        on_record(record);
    }
}

void Recording_View::keep_text(const QString& word, const std::string& text) {
    keep(word + QString::fromStdString(text));
}
