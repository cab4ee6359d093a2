// SPDX-License-Identifier: MIT

#include "tests/forms/fact_file.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <stdexcept>

namespace {

QJsonObject read_object(const QString& file_name) {
    QFile file(":/facts/" + file_name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("no facts " + file_name.toStdString());
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) {
        throw std::runtime_error(file_name.toStdString() + ": " +
                                 error.errorString().toStdString());
    }
    return document.object();
}

} // namespace

QJsonObject read_facts(const QString& class_name) {
    return read_object(class_name.toLower() + ".json");
}

const QJsonObject& style_kinds() {
    static const QJsonObject kinds = read_object("style_kinds.json");
    return kinds;
}

QStringList to_texts(const QJsonValue& value) {
    QStringList texts;
    for (const auto& entry : value.toArray()) {
        texts.append(entry.toString());
    }
    return texts;
}
