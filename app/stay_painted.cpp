// SPDX-License-Identifier: MIT

#include "app/stay_painted.h"

#include <QBackingStore>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace {

/// Painted as soon as it is created: this needs neither an event nor a window manager.
class Picture : public QWindow {
public:
    explicit Picture(QWidget& dialog) : store(this) {
        setObjectName(dialog.objectName() + "Picture");
        setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
        setGeometry(QRect(dialog.mapToGlobal(QPoint()), dialog.size()));
        const QPixmap look = dialog.grab();
        show();
        const QRect whole(QPoint(), size());
        store.resize(size());
        store.beginPaint(whole);
        QPainter(store.paintDevice()).drawPixmap(whole, look);
        store.endPaint();
        store.flush(whole);
    }

private:
    QBackingStore store;
};

} // namespace

void hide_and_stay_painted(QWidget& dialog) {
    if (dialog.isVisible() && !QGuiApplication::platformName().startsWith("wayland")) {
        auto* picture = new Picture(dialog);
        // Not deleteLater(): if the process ends before it is done, newer versions of Qt do it
        // while the process exits, when a window can no longer be destroyed.
        QTimer::singleShot(0, picture, [picture] { delete picture; });
    }
    dialog.hide();
}
