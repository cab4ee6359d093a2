#include "tests/link/recording_handler.h"

QStringList Recording_Handler::texts_of(const QString& word) const {
    QStringList texts;
    for (const QString& record : records) {
        if (record.startsWith(word + ':')) {
            texts.append(record.mid(word.size() + 1));
        }
    }
    return texts;
}

void Recording_Handler::keep(const QString& record) {
    records.append(record);
    if (on_record) {
        on_record(record);
    }
}

void Recording_Handler::keep_text(const QString& word, const std::string& text) {
    keep(word + QString::fromStdString(text));
}
