// SPDX-License-Identifier: MIT

#include "benchmarks/dialog_watch.h"

#include "benchmarks/statistics.h"
#include "tests/support/find_child.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

Dialog_Watch::Dialog_Watch() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    qApp->installEventFilter(this);
}

void Dialog_Watch::choose(const QString& path) {
    chosen_path = path;
    gone_ns = 0;
    box_ns = 0;
    answered = false;
}

bool Dialog_Watch::eventFilter(QObject* watched, QEvent* event) {
    if (auto* dialog = qobject_cast<QFileDialog*>(watched)) {
        if (event->type() == QEvent::Show) {
            // Its parts end after it, among them a thread that Qt waits for.
            for (const QObject* part : dialog->children()) {
                connect(part, &QObject::destroyed, this, [this] { gone_ns = now_ns(); });
            }
            QTimer::singleShot(0, dialog, [this, dialog] {
                find_child<QLineEdit>(*dialog, "fileNameEdit").setText(chosen_path);
                QMetaObject::invokeMethod(dialog, "accept");
            });
        }
    } else if (auto* box = qobject_cast<QMessageBox*>(watched)) {
        if (box_ns == 0) {
            box_ns = now_ns();
        }
        if (event->type() == QEvent::Show) {
            QTimer::singleShot(0, box, [this, box] {
                answered = true;
                box->accept();
            });
        }
    }
    return QObject::eventFilter(watched, event);
}
