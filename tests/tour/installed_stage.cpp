#include "tests/tour/in_gui.h"
#include "tests/tour/pages.h"
#include "tests/tour/sights.h"
#include "tests/tour/stages.h"
#include "tests/tour/start.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPixmap>
#include <QSet>

namespace {

/// Files that the program runs code of, and that no package laid down.
QStringList foreign_code() {
    QFile maps("/proc/self/maps");
    if (!maps.open(QIODevice::ReadOnly)) {
        throw Step_Failed("what the program has loaded can't be read");
    }
    QSet<QString> files;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const QString file = QString::fromLocal8Bit(line.mid(line.indexOf('/')));
        const bool is_code = line.contains("-xp ") && line.contains('/');
        if (is_code && !file.startsWith("/usr/")) {
            files.insert(file);
        }
    }
    return files.values();
}

void see_where_it_runs(Visitor& visitor) {
    const QString program = in_gui([] { return QCoreApplication::applicationFilePath(); });
    const QStringList foreign = foreign_code();
    if (!program.startsWith("/usr/") || foreign.size() != 1 ||
        !foreign.first().endsWith("/libhalvern_tour.so")) {
        throw Step_Failed(program + " runs code of " + foreign.join(", "));
    }
    visitor.tell(program + " in " + in_gui([] { return QDir::currentPath(); }) +
                 ": all its code but the tour's comes from /usr");
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
