// SPDX-License-Identifier: MIT

#include "app/stay_painted.h"
#include "tests/support/own_display.h"
#include "tests/support/wait_until.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QTest>

/// The picture of a hidden dialog, on the screen of a real X server.
class Test_Stay_Painted : public QObject {
    Q_OBJECT

private slots:
    void a_hidden_dialog_is_still_seen_until_events_are_served();
    void exec_ends_at_once();
};

namespace {

constexpr int max_wait = 20'000;

/// What is on the screen, without processing any event.
QImage screen_at(const QRect& place) {
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, place.x(), place.y(), place.width(), place.height())
        .toImage();
}

bool is_all(const QImage& image, const QColor& colour) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != colour) {
                return false;
            }
        }
    }
    return true;
}

/// All pixels are green.
class Green_Dialog : public QDialog {
public:
    Green_Dialog() {
        setPalette(QPalette(Qt::green));
        setFixedSize(200, 100);
    }
    QRect place() const { return {mapToGlobal(QPoint()), size()}; }
};

} // namespace

void Test_Stay_Painted::a_hidden_dialog_is_still_seen_until_events_are_served() {
    Green_Dialog dialog;
    const QColor green = QPalette(Qt::green).color(QPalette::Window);
    dialog.show();
    QVERIFY(wait_until([&] { return is_all(screen_at(dialog.place()), green); }, max_wait));
    const QRect place = dialog.place();

    hide_and_stay_painted(dialog);
    QVERIFY(!dialog.isVisible());
    // The window manager needs some time to remove the dialog.
    for (int round = 0; round < 20; ++round) {
        QVERIFY(is_all(screen_at(place), green));
        QTest::qSleep(10);
    }
    QVERIFY(wait_until([&] { return !is_all(screen_at(place), green); }, max_wait));
}

void Test_Stay_Painted::exec_ends_at_once() {
    Green_Dialog dialog;
    QTimer::singleShot(0, &dialog, [&] { hide_and_stay_painted(dialog); });
    dialog.exec();
    QVERIFY(!dialog.isVisible());
}

int main(int argc, char** argv) {
    if (!is_on_own_display()) {
        return run_on_own_display(argc, argv);
    }
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Test_Stay_Painted test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_stay_painted.moc"
