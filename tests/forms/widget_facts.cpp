// SPDX-License-Identifier: MIT

#include "tests/forms/widget_facts.h"

#include "tests/forms/fact_file.h"

#include <QComboBox>
#include <QJsonArray>
#include <QLayout>
#include <QMetaProperty>
#include <QPushButton>
#include <QStackedWidget>

namespace {

const QMap<QString, Qt::Alignment> alignment_words = {
    {"left", Qt::AlignLeft},       {"right", Qt::AlignRight},   {"hcenter", Qt::AlignHCenter},
    {"vcenter", Qt::AlignVCenter}, {"bottom", Qt::AlignBottom}, {"center", Qt::AlignCenter},
};

/// Collects differences as "what: found, not expected".
class Differences {
public:
    template <typename Value>
    void compare(const QString& what, const Value& found, const Value& told) {
        if (found != told) {
            list.append(QString("%1: %2, not %3").arg(what, print(found), print(told)));
        }
    }
    void add(const QString& text) { list.append(text); }

    QStringList list;

private:
    static QString print(const QString& text) { return '"' + text + '"'; }
    static QString print(const QStringList& texts) { return '"' + texts.join("\", \"") + '"'; }
    static QString print(int number) { return QString::number(number); }
    static QString print(bool value) { return value ? "yes" : "no"; }
};

const QLayoutItem* find_cell(const QLayout& layout, const QWidget& widget) {
    for (int i = 0; i < layout.count(); ++i) {
        const QLayoutItem* item = layout.itemAt(i);
        if (item->widget() == &widget) {
            return item;
        }
        const QLayout* inner = const_cast<QLayoutItem*>(item)->layout();
        if (const QLayoutItem* cell = inner ? find_cell(*inner, widget) : nullptr) {
            return cell;
        }
    }
    return nullptr;
}

void compare_alignment(Differences& differences, const QString& what, Qt::Alignment found,
                       const QString& words) {
    for (const QString& word : words.split(' ')) {
        const Qt::Alignment told = alignment_words.value(word);
        Qt::Alignment mask;
        mask |= (told & Qt::AlignHorizontal_Mask) ? Qt::AlignHorizontal_Mask : Qt::Alignment();
        mask |= (told & Qt::AlignVertical_Mask) ? Qt::AlignVertical_Mask : Qt::Alignment();
        differences.compare(what + ' ' + word, int(found & mask), int(told));
    }
}

void compare_place(Differences& differences, const QWidget& form, const QWidget& widget,
                   const QJsonObject& fact) {
    if (fact.contains("in")) {
        const auto* block = form.findChild<QWidget*>(fact["in"].toString());
        differences.compare("stands in " + fact["in"].toString(),
                            block && block->isAncestorOf(&widget), true);
    }
    if (fact.contains("parent")) {
        differences.compare("parent", widget.parentWidget()->objectName(),
                            fact["parent"].toString());
    }
    if (fact.contains("cell")) {
        const QLayoutItem* cell = find_cell(widget);
        compare_alignment(differences, "cell", cell ? cell->alignment() : Qt::Alignment(),
                          fact["cell"].toString());
    }
    // Of a stack's pages only the current one is not hidden.
    if (!qobject_cast<const QStackedWidget*>(widget.parentWidget())) {
        differences.compare("hidden", widget.isHidden(), false);
    }
}

void compare_content(Differences& differences, const QWidget& widget, const QJsonObject& fact) {
    if (fact.contains("text")) {
        differences.compare("text", widget.property("text").toString(), fact["text"].toString());
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        QStringList items;
        for (int i = 0; i < box->count(); ++i) {
            items.append(box->itemText(i));
        }
        differences.compare("items", items, to_texts(fact["items"]));
    }
    if (fact.contains("plain")) {
        differences.compare("text format", widget.property("textFormat").toInt(),
                            int(Qt::PlainText));
    }
    if (fact.contains("align")) {
        compare_alignment(differences, "text", widget.property("alignment").value<Qt::Alignment>(),
                          fact["align"].toString());
    }
}

void compare_size(Differences& differences, const QString& what, QSize found,
                  const QJsonValue& told) {
    const QJsonArray pair = told.toArray();
    if (pair.at(0).isDouble()) {
        differences.compare(what + " width", found.width(), pair.at(0).toInt());
    }
    if (pair.at(1).isDouble()) {
        differences.compare(what + " height", found.height(), pair.at(1).toInt());
    }
}

void compare_limits(Differences& differences, const QWidget& widget, const QJsonObject& fact) {
    for (const char* key : {"fixed", "min"}) {
        compare_size(differences, "minimum", widget.minimumSize(), fact[key]);
    }
    for (const char* key : {"fixed", "max"}) {
        compare_size(differences, "maximum", widget.maximumSize(), fact[key]);
    }
    if (fact.contains("unlimited")) {
        const bool both = fact["unlimited"].toString() == "both";
        const QJsonValue free = both ? QJsonValue(0) : QJsonValue();
        const QJsonValue most = both ? QJsonValue(QWIDGETSIZE_MAX) : QJsonValue();
        compare_size(differences, "minimum", widget.minimumSize(), QJsonArray{free, 0});
        compare_size(differences, "maximum", widget.maximumSize(),
                     QJsonArray{most, QWIDGETSIZE_MAX});
    }
}

void compare_font(Differences& differences, const QFont& font, const QJsonObject& fact) {
    if (fact.contains("points")) {
        differences.compare("points", font.pointSize(), fact["points"].toInt());
        differences.compare("bold", font.bold(), fact["bold"].toBool());
    }
    if (fact.contains("family")) {
        differences.compare("family", font.family(), fact["family"].toString());
    }
}

void compare_style(Differences& differences, const QWidget& widget, const QJsonObject& fact) {
    if (fact.contains("style")) {
        differences.list += style_differences(widget.styleSheet(), to_texts(fact["style"]));
    }
    for (const QString& part : to_texts(fact["style_parts"])) {
        if (!widget.styleSheet().simplified().contains(part)) {
            differences.add("style sheet lacks " + part);
        }
    }
    if (fact["no_style"].toBool()) {
        differences.compare("style sheet", widget.styleSheet(), QString());
    }
}

void compare_property(Differences& differences, const QWidget& widget, const QString& name,
                      const QJsonValue& told) {
    const int index = widget.metaObject()->indexOfProperty(qPrintable(name));
    if (index < 0) {
        differences.add("no property " + name);
        return;
    }
    const QMetaProperty property = widget.metaObject()->property(index);
    const QVariant found = property.read(&widget);
    if (told.isArray()) {
        compare_size(differences, name, found.toSize(), told);
    } else if (property.isEnumType()) {
        differences.compare(name, found.toInt(),
                            property.enumerator().keyToValue(qPrintable(told.toString())));
    } else {
        differences.compare(name, found.toInt(), told.toVariant().toInt());
    }
}

} // namespace

const QLayoutItem* find_cell(const QWidget& widget) {
    const QLayout* layout = widget.parentWidget() ? widget.parentWidget()->layout() : nullptr;
    return layout ? find_cell(*layout, widget) : nullptr;
}

QStringList style_differences(const QString& style_sheet, const QStringList& parts) {
    QStringList told;
    for (const QString& part : parts) {
        told.append(style_kinds().value(part).toString(part));
    }
    Differences differences;
    differences.compare("style sheet", style_sheet.simplified(), told.join(' '));
    return differences.list;
}

QStringList widget_differences(const QWidget& form, const QString& name, const QJsonObject& fact) {
    const auto widgets = form.findChildren<QWidget*>(name);
    if (widgets.size() != 1) {
        return {QString("%1 objects of this name").arg(widgets.size())};
    }
    const QWidget& widget = *widgets.first();
    Differences differences;
    differences.compare("class", QString(widget.metaObject()->className()),
                        fact["class"].toString());
    compare_place(differences, form, widget, fact);
    compare_content(differences, widget, fact);
    compare_limits(differences, widget, fact);
    compare_font(differences, widget.font(), fact);
    compare_style(differences, widget, fact);
    const QJsonObject properties = fact["properties"].toObject();
    for (auto property = properties.begin(); property != properties.end(); ++property) {
        compare_property(differences, widget, property.key(), property.value());
    }
    if (fact["icon_size_unset"].toBool()) {
        const QSize found = widget.property("iconSize").toSize();
        differences.compare("own icon size", found != QPushButton().iconSize(), false);
    }
    return differences.list;
}
