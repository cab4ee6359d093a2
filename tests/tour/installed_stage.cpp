// SPDX-License-Identifier: MIT

#include "tests/tour/in_gui.h"
#include "tests/tour/loaded_code.h"
#include "tests/tour/on_screen.h"
#include "tests/tour/pages.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QPixmap>

namespace {

void see_where_it_runs(Tour_Driver& driver) {
    const QString program = in_gui([] { return QCoreApplication::applicationFilePath(); });
    const QStringList foreign = loaded_code::foreign_files();
    if (!program.startsWith(loaded_code::home()) || !foreign.isEmpty()) {
        throw Step_Failed(program + " runs code of " + foreign.join(", "));
    }
    driver.report_step(program + " in " + in_gui([] { return QDir::currentPath(); }) +
                       ": all its code but the tour's comes from " + loaded_code::home());
}

/// The Lite's logo is a file below the folder that the program was started in.
void see_logo(Tour_Driver& driver) {
    const QString wanted = "logos/rsz_velmoran_logo_original.png";
    driver.see("the logo", [wanted] {
        const auto* place = qobject_cast<QLabel*>(on_screen::find("label_52"));
        const QPixmap logo(wanted);
        return place != nullptr && place->isVisible() && !logo.isNull() &&
               place->pixmap().toImage() == logo.toImage();
    });
    driver.report_step("the window shows " +
                       in_gui([wanted] { return QDir().absoluteFilePath(wanted); }));
}

} // namespace

void take_installed_tour(Tour_Driver& driver, const QString& /*settings_file*/) {
    see_where_it_runs(driver);
    pick_model(driver, "radioButton_LITE");
    driver.see_received(1, "//BP");
    driver.report_step("the unit was asked for everything: it received //BP");
    see_factory_settings(driver);
    see_logo(driver);
}
