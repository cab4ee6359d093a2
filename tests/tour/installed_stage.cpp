#include "tests/tour/in_gui.h"
#include "tests/tour/loaded_code.h"
#include "tests/tour/pages.h"
#include "tests/tour/sights.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QPixmap>

namespace {

void see_where_it_runs(Visitor& visitor) {
    const QString program = in_gui([] { return QCoreApplication::applicationFilePath(); });
    const QStringList foreign = loaded_code::foreign_files();
    if (!program.startsWith(loaded_code::home()) || !foreign.isEmpty()) {
        throw Step_Failed(program + " runs code of " + foreign.join(", "));
    }
    visitor.tell(program + " in " + in_gui([] { return QDir::currentPath(); }) +
                 ": all its code but the tour's comes from " + loaded_code::home());
}

/// The Lite's logo is a file below the folder that the program was started in.
void see_logo(Visitor& visitor) {
    const QString wanted = "logos/rsz_velmoran_logo_original.png";
    visitor.see("the logo", [wanted] {
        const auto* place = qobject_cast<QLabel*>(sights::find("label_52"));
        const QPixmap logo(wanted);
        return place != nullptr && place->isVisible() && !logo.isNull() &&
               place->pixmap().toImage() == logo.toImage();
    });
    visitor.tell("the window shows " +
                 in_gui([wanted] { return QDir().absoluteFilePath(wanted); }));
}

} // namespace

void take_installed_tour(Visitor& visitor, const QString& /*settings_file*/) {
    see_where_it_runs(visitor);
    pick_model(visitor, "radioButton_LITE");
    visitor.see_received(1, "//BP");
    visitor.tell("the unit was asked for everything: it received //BP");
    see_factory_settings(visitor);
    see_logo(visitor);
}
