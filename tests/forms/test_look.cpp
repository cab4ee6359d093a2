#include "tests/forms/test_look.h"

#include <QApplication>
#include <QFontDatabase>

bool use_test_look() {
    const QString family = "DejaVu Sans";
    QApplication::setStyle("Fusion");
    QApplication::setFont(QFont(family, 9));
    QFont::insertSubstitution("Segoe UI Emoji", family);
    return QFontDatabase::hasFamily(family);
}
