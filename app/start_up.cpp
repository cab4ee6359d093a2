// SPDX-License-Identifier: MIT

#include "app/start_up.h"

#include "app/select_km_type_dialog.h"

#include <QApplication>
#include <QColor>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QNetworkProxy>
#include <QPalette>
#include <QTimer>

void set_light_palette() {
    QPalette palette(QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ButtonText, Qt::black);
    // Buttons are rgb(189, 189, 189); this grey on it has a contrast of 3.4 to 1.
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(90, 90, 90));
    }
    QApplication::setPalette(palette);
}

void refuse_proxies() {
    // Takes the system's proxies out of use as well.
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

void keep_start_quiet() {
    QLoggingCategory::setFilterRules("qt.core.qmetaobject.connectslotsbyname.warning=false");
}

int run_tool(const Window_Factory& make_window, std::exception_ptr& construction_failure) {
    Select_KM_type_Dialog dialog;
    dialog.exec();

    std::unique_ptr<QMainWindow> window;
    try {
        window = make_window(dialog.get_km_type());
    } catch (...) {
        construction_failure = std::current_exception();
        return 1;
    }
    if (window) {
        window->show();
    } else {
        // No window will ever be closed, so nothing else would end the loop.
        QTimer::singleShot(0, qApp, &QApplication::quit);
    }
    return QApplication::exec();
}
