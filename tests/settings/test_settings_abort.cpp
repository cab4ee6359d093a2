// SPDX-License-Identifier: MIT

#include "app/select_km_type_dialog.h"
#include "tests/support/desktop.h"
#include "tests/support/find_child.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/wait_until.h"

#include <QDir>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

/// A save that ends the unmodified program, on a screen, operated from outside.
class Test_Settings_Abort : public QObject {
    Q_OBJECT

private slots:
    void a_report_without_custom_entries_ends_the_program_at_a_save();

private:
    /// Chooses the Lite in the model dialog, and returns its main window.
    QString start_lite(const Desktop& desktop) const;
};

namespace {

QPoint centre_in(const QWidget& window, const QString& button_name) {
    const auto& button = find_child<QAbstractButton>(window, button_name);
    return button.mapTo(&window, button.rect().center());
}

/// A radio button accepts a click on its mark, not in its empty middle.
QPoint mark_in(const QWidget& window, const QString& button_name) {
    const auto& button = find_child<QAbstractButton>(window, button_name);
    return button.mapTo(&window, QPoint(10, button.height() / 2));
}

/// Where the save button accepts a click, taken from a window that the test creates.
QPoint place_of_save_button() {
    Lite_Fixture lite;
    lite.open();
    return centre_in(lite.window(), "pushButton_Create_Settings_File");
}

} // namespace

QString Test_Settings_Abort::start_lite(const Desktop& desktop) const {
    Select_KM_type_Dialog dialog;
    dialog.setAttribute(Qt::WA_DontShowOnScreen);
    dialog.show();
    const QString shown = desktop.find_window(dialog.windowTitle());
    if (!desktop.click(shown, mark_in(dialog, "radioButton_LITE")) ||
        !desktop.click(shown, mark_in(dialog, "pushButton_Continue"))) {
        return {};
    }
    return desktop.find_window("Halvern");
}

void Test_Settings_Abort::a_report_without_custom_entries_ends_the_program_at_a_save() {
    const QTemporaryDir home;
    const QPoint save_button = place_of_save_button();
    const Desktop desktop;
    QVERIFY(desktop.is_ready());
    Simulated_Switch device;
    Fault_Plan plan;
    plan.silence = true;
    device.set_faults(plan);
    Program_Run program({.program = halvern_program(),
                         .ports = {device.device_name()},
                         .display = desktop.display(),
                         .environment = {{"HOME", home.path()}}});
    const QString window = start_lite(desktop);
    QVERIFY(!window.isEmpty());
    QVERIFY(wait_until([&] { return device.received_commands().contains("//BP"); }, 20'000));

    // A report that enables the controls and contains nothing else.
    device.send("KM\n");
    const QString box = desktop.find_window("Information");
    QVERIFY(desktop.press(box, "Return"));
    QVERIFY(wait_until([&] { return !desktop.shows_window("Information"); }, 20'000));
    QVERIFY(!program.has_ended());

    device.clear_record();
    QVERIFY(desktop.click(window, save_button));
    const QString dialog = desktop.find_window("Save Settings File");
    QVERIFY(!dialog.isEmpty());
    QCOMPARE(device.received_commands(), QByteArrayList{"//rl"});
    QVERIFY(desktop.press(dialog, "a"));
    QVERIFY(desktop.press(dialog, "Return"));
    QVERIFY(program.wait_for_end(20'000));
    // An abort by the uncaught exception, not another crash.
    QCOMPARE(program.ending_signal(), SIGABRT);
    QVERIFY2(program.errors().contains("terminate called after throwing an instance of "
                                       "'std::out_of_range'"),
             program.errors().constData());
    // The file has not been created.
    QCOMPARE(QDir(home.path()).entryList(QDir::Files | QDir::System), QStringList());
}

QTEST_MAIN(Test_Settings_Abort)

#include "test_settings_abort.moc"
