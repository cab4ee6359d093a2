// SPDX-License-Identifier: MIT

#include "app/select_km_type_dialog.h"
#include "sim/simulated_switch.h"
#include "tests/support/desktop.h"
#include "tests/support/find_child.h"
#include "tests/support/log_folder.h"
#include "tests/support/program_run.h"
#include "tests/support/wait_until.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

/// The unmodified program on a screen, operated from outside.
class Test_Program_On_A_Display : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void the_model_dialog_closed_by_its_frame_ends_the_program_with_status_0();
    void a_lite_is_chosen_by_mouse_and_closed_by_its_frame();
    void a_lite_without_a_port_shows_its_warning_and_never_its_window();

private:
    Program_Setting program_on_screen(const QStringList& ports = {}) const;

    std::unique_ptr<Desktop> desktop;
};

namespace {

const QString model_dialog = "Velmoran Ostrel";
const QString close_by_frame = "alt+F4";

/// Where a button of the model dialog accepts a click, taken from a dialog that the test creates.
QPoint place_in_model_dialog(const QString& button_name) {
    Select_KM_type_Dialog dialog;
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.show();
    const QAbstractButton& button = find_child<QAbstractButton>(dialog, button_name);
    return button.mapTo(&dialog, QPoint(10, button.height() / 2));
}

} // namespace

void Test_Program_On_A_Display::initTestCase() {
    desktop = std::make_unique<Desktop>();
    QVERIFY2(desktop->is_ready(), (desktop->display() + desktop->errors()).toUtf8().constData());
}

Program_Setting Test_Program_On_A_Display::program_on_screen(const QStringList& ports) const {
    return {.program = halvern_program(), .ports = ports, .display = desktop->display()};
}

void Test_Program_On_A_Display::
    the_model_dialog_closed_by_its_frame_ends_the_program_with_status_0() {
    const Log_Folder folder;
    Program_Run program(program_on_screen());
    const QString dialog = desktop->find_window(model_dialog);
    QVERIFY(desktop->press(dialog, close_by_frame));
    QVERIFY(program.wait_for_end(20'000));
    QVERIFY2(program.exit_status() == 0, program.errors().constData());
    QVERIFY(!folder.has_log());
}

void Test_Program_On_A_Display::a_lite_is_chosen_by_mouse_and_closed_by_its_frame() {
    Simulated_Switch device;
    Program_Run program(program_on_screen({device.device_name()}));
    const QString dialog = desktop->find_window(model_dialog);
    QVERIFY(desktop->click(dialog, place_in_model_dialog("radioButton_LITE")));
    QVERIFY(desktop->click(dialog, place_in_model_dialog("pushButton_Continue")));

    const QString window = desktop->find_window("Halvern");
    QVERIFY(!window.isEmpty());
    QVERIFY(!desktop->shows_window(model_dialog));
    // Only the Lite asks without a wizard in between.
    const QByteArrayList questions{"//rl", "//??", "//BP"};
    QVERIFY(wait_until([&] { return device.received_commands().mid(0, 3) == questions; }, 20'000));
    QVERIFY(desktop->press(window, close_by_frame));
    QVERIFY(program.wait_for_end(20'000));
    QVERIFY2(program.exit_status() == 0, program.errors().constData());
}

void Test_Program_On_A_Display::a_lite_without_a_port_shows_its_warning_and_never_its_window() {
    Program_Run program(program_on_screen());
    const QString dialog = desktop->find_window(model_dialog);
    QVERIFY(desktop->click(dialog, place_in_model_dialog("radioButton_LITE")));
    QVERIFY(desktop->click(dialog, place_in_model_dialog("pushButton_Continue")));
    const QString box = desktop->find_window(" ");
    QVERIFY(!box.isEmpty());
    QVERIFY(!desktop->shows_window("Halvern"));
    QVERIFY(desktop->press(box, "Return"));
    QVERIFY(program.wait_for_end(20'000));
    QCOMPARE(program.exit_status(), 1);
}

QTEST_MAIN(Test_Program_On_A_Display)

#include "test_program_on_a_display.moc"
