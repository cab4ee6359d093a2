#include "tests/tour/settings.h"

#include "tests/tour/pages.h"
#include "tests/tour/step_failed.h"

#include <QFile>

namespace {

#ifdef Q_OS_WIN
const char line_end[] = "\r\n";
#else
const char line_end[] = "\n";
#endif

} // namespace

void save_settings(Visitor& visitor, const QString& path, int line_count) {
    visitor.click("pushButton_Create_Settings_File");
    visitor.take_picture("save");
    visitor.choose_file(path, "Save");
    visitor.answer_box("File saved");

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Step_Failed("no file " + path);
    }
    const QByteArray text = file.readAll();
    const QStringList lines = QString::fromUtf8(text).trimmed().split(line_end);
    if (!text.endsWith(line_end) || lines.size() != line_count ||
        lines.first() != "KM Control: //c2") {
        throw Step_Failed("the file is: " + QString::fromUtf8(text));
    }
    visitor.tell(
        QString("settings saved, %1 lines; the first: %2").arg(lines.size()).arg(lines.first()));
}

void load_settings(Visitor& visitor, const QString& path) {
    visitor.click("pushButton_Load_Settings_File");
    visitor.choose_file(path, "Open");
    visitor.see_received(2, "//c2");
    visitor.see_received(2, "//MM C1 150 300 STUDIO");
    visitor.see_received(2, "//FF01B01FF02B02FF03B03FF04B07");
    visitor.answer_box("Settings file applied");
    // A loaded file leaves the blank between the two numbers in the second field.
    visitor.see_shown("lineEdit_MouseParking_x", "20");
    visitor.see_shown("lineEdit_MouseParking_y", " 80");
    visitor.tell("settings file loaded: the second unit received its commands");
}

void refresh(Visitor& visitor) {
    visitor.click("pushButton_Refresh");
    visitor.see_received(2, "//BP");
}

void load_and_compare(Visitor& visitor, const QString& path) {
    load_settings(visitor, path);
    refresh(visitor);
    see_changed_settings(visitor);
    visitor.take_picture("loaded");
}
