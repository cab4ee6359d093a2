// SPDX-License-Identifier: MIT

#include "app/text_font.h"

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QFontDatabase>
#include <QObject>

#include <algorithm>

namespace {

constexpr int form_point_size = 9;

/// Sets its font again whenever another one has taken its place.
class Font_Keeper : public QObject {
public:
    Font_Keeper(const QFont& font, QObject& application) : QObject(&application), kept(font) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::ApplicationFontChange || watched != qApp ||
            QApplication::font() == kept) {
            return QObject::eventFilter(watched, event);
        }
        // The widgets hear of this change only.
        QApplication::setFont(kept);
        return true;
    }

private:
    const QFont kept;
};

} // namespace

const QStringList& fitting_text_families() {
    // The fonts after "Segoe UI" were measured: tests/forms/test_form_geometry.cpp. Arimo has the
    // widths and heights of Liberation Sans. Others are too wide or too high: DejaVu Sans,
    // Noto Sans, Open Sans.
    static const QStringList families = {"Segoe UI", "Liberation Sans", "Arimo"};
    return families;
}

QString find_text_family() {
    const QStringList& families = fitting_text_families();
    const auto found = std::find_if(families.cbegin(), families.cend(), [](const QString& family) {
        return QFontDatabase::hasFamily(family);
    });
    return found != families.cend() ? *found : QApplication::font().family();
}

void use_text_family(const QString& family) {
    QApplication::setFont(QFont(family, form_point_size));
    for (const char* named : {"Segoe UI", "Segoe UI Emoji"}) {
        QFont::insertSubstitution(named, family);
    }
}

void keep_text_font() { qApp->installEventFilter(new Font_Keeper(QApplication::font(), *qApp)); }
