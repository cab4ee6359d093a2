// SPDX-License-Identifier: MIT

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

void save_settings(Tour_Driver& driver, const QString& path, int line_count) {
    driver.click("pushButton_Create_Settings_File");
    driver.take_picture("save");
    driver.choose_file(path, "Save");
    driver.answer_box("File saved");

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
    driver.report_step(
        QString("settings saved, %1 lines; the first: %2").arg(lines.size()).arg(lines.first()));
}

void load_settings(Tour_Driver& driver, const QString& path) {
    driver.click("pushButton_Load_Settings_File");
    driver.choose_file(path, "Open");
    driver.see_received(2, "//c2");
    driver.see_received(2, "//MM C1 150 300 STUDIO");
    driver.see_received(2, "//FF01B01FF02B02FF03B03FF04B07");
    driver.answer_box("Settings file applied");
    driver.see_layout_read_back(2);
    // A loaded file leaves the blank between the two numbers in the second field.
    driver.see_shown("lineEdit_MouseParking_x", "20");
    driver.see_shown("lineEdit_MouseParking_y", " 80");
    driver.report_step("settings file loaded: the second unit received its commands");
}

void refresh(Tour_Driver& driver) {
    driver.click("pushButton_Refresh");
    driver.see_received(2, "//BP");
}

void load_and_compare(Tour_Driver& driver, const QString& path) {
    load_settings(driver, path);
    refresh(driver);
    see_changed_settings(driver);
    driver.take_picture("loaded");
}
