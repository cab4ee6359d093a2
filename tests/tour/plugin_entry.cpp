// SPDX-License-Identifier: MIT

#include "tests/tour/tour_thread.h"

#include <QCoreApplication>
#include <QGenericPlugin>

/// The entry into the unmodified program on Windows: `halvern.exe -plugin halvern_tour`, or
/// QT_QPA_GENERIC_PLUGINS, loads this library from the folder "generic" next to the program.
class Tour_Plugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "plugin_entry.json")

public:
    QObject* create(const QString& /*name*/, const QString& /*options*/) override {
        // The system's file dialogs have no widgets that could be read.
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        begin_tour();
        return new QObject;
    }
};

#include "plugin_entry.moc"
