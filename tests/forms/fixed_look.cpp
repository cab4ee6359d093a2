// SPDX-License-Identifier: MIT

#include "tests/forms/fixed_look.h"

#include "app/text_font.h"

#include <QApplication>
#include <QFontDatabase>

bool use_fixed_look(const QString& family) {
    QApplication::setStyle("Fusion");
    use_text_family(family);
    return QFontDatabase::hasFamily(family);
}
