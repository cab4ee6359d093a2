#include "tests/forms/test_look.h"

#include "app/text_font.h"

#include <QApplication>
#include <QFontDatabase>

bool use_test_look(const QString& family) {
    QApplication::setStyle("Fusion");
    use_text_family(family);
    return QFontDatabase::hasFamily(family);
}
