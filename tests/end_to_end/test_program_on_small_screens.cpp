// SPDX-License-Identifier: MIT

#include "app/screen_fit.h"
#include "sim/simulated_switch.h"
#include "tests/support/desktop.h"
#include "tests/support/program_run.h"

#include <QTest>

/// The unmodified program on screens that are barely large enough for its window, or too small.
class Test_Program_On_Small_Screens : public QObject {
    Q_OBJECT

private slots:
    void the_scale_follows_from_the_free_area_data();
    void the_scale_follows_from_the_free_area();
    void the_whole_window_is_on_the_screen_data();
    void the_whole_window_is_on_the_screen();
    void arguments_hold_for_the_smaller_window_as_well();
};

void Test_Program_On_Small_Screens::the_scale_follows_from_the_free_area_data() {
    QTest::addColumn<QSize>("free_area");
    QTest::addColumn<double>("scale");
    QTest::newRow("large") << QSize(2560, 1440) << 1.0;
    QTest::newRow("just large enough") << QSize(1321, 741) << 1.0;
    QTest::newRow("a pixel too narrow") << QSize(1320, 741) << 0.999;
    QTest::newRow("a pixel too low") << QSize(1321, 740) << 0.998;
    QTest::newRow("1280 by 720") << QSize(1280, 720) << 0.968;
    QTest::newRow("1366 by 768 with a panel of 48") << QSize(1366, 720) << 0.971;
    QTest::newRow("1024 by 768") << QSize(1024, 768) << 0.775;
}

void Test_Program_On_Small_Screens::the_scale_follows_from_the_free_area() {
    QFETCH(QSize, free_area);
    QFETCH(double, scale);
    QCOMPARE(scale_that_fits(free_area), scale);
}

void Test_Program_On_Small_Screens::the_whole_window_is_on_the_screen_data() {
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<QString>("scaling");
    QTest::addColumn<QString>("user_scale");
    QTest::addColumn<QSize>("window");
    QTest::newRow("1280 by 720") << QSize(1280, 720) << ""
                                 << "" << QSize(1263, 671);
    QTest::newRow("1366 by 768") << QSize(1366, 768) << ""
                                 << "" << QSize(1305, 693);
    QTest::newRow("1920 by 1080 at 150 %") << QSize(1920, 1080) << "1.5"
                                           << "" << QSize(1895, 1006);
    QTest::newRow("1920 by 1080, the user's own 150 %") << QSize(1920, 1080) << ""
                                                        << "1.5" << QSize(1895, 1006);
}

void Test_Program_On_Small_Screens::the_whole_window_is_on_the_screen() {
    QFETCH(QSize, screen);
    QFETCH(QString, scaling);
    QFETCH(QString, user_scale);
    QFETCH(QSize, window);
    const Desktop desktop(QString("%1x%2x24").arg(screen.width()).arg(screen.height()));
    QVERIFY(desktop.is_ready());
    Simulated_Switch device;
    QMap<QString, QString> environment;
    if (!scaling.isEmpty()) {
        environment["QT_SCREEN_SCALE_FACTORS"] = scaling;
    }
    if (!user_scale.isEmpty()) {
        environment["QT_SCALE_FACTOR"] = user_scale;
    }
    Program_Run program({.program = halvern_program(),
                         .ports = {device.device_name()},
                         .display = desktop.display(),
                         .environment = environment});
    // From the Pro, which is chosen, to the Lite.
    const QString dialog = desktop.find_window("Velmoran Ostrel");
    QVERIFY(desktop.press(dialog, "Left"));
    QVERIFY(desktop.press(dialog, "Left"));
    QVERIFY(desktop.press(dialog, "Return"));
    const QString main_window = desktop.find_window("Halvern");
    QVERIFY2(!main_window.isEmpty(), program.errors().constData());
    const QRect place = desktop.visible_place_of(main_window);
    // One pixel more or less, as Qt rounds.
    QVERIFY2(qAbs(place.width() - window.width()) <= 1 &&
                 qAbs(place.height() - window.height()) <= 1,
             qPrintable(QString("%1 x %2").arg(place.width()).arg(place.height())));
    QVERIFY(desktop.press(main_window, "alt+F4"));
    QVERIFY(program.wait_for_end(20'000));
    QCOMPARE(program.exit_status(), 0);
}

void Test_Program_On_Small_Screens::arguments_hold_for_the_smaller_window_as_well() {
    const Desktop desktop("1280x720x24");
    QVERIFY(desktop.is_ready());
    // Without its argument the program would show nothing.
    Program_Run program({.program = halvern_program(),
                         .arguments = {"-platform", "xcb"},
                         .display = desktop.display(),
                         .environment = {{"QT_QPA_PLATFORM", "offscreen"}}});
    const QString dialog = desktop.find_window("Velmoran Ostrel");
    QVERIFY2(!dialog.isEmpty(), program.errors().constData());
    QVERIFY(desktop.press(dialog, "Escape"));
    QVERIFY(program.wait_for_end(20'000));
    QCOMPARE(program.exit_status(), 0);
}

QTEST_GUILESS_MAIN(Test_Program_On_Small_Screens)

#include "test_program_on_small_screens.moc"
