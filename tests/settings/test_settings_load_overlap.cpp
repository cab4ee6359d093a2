// SPDX-License-Identifier: MIT

#include "tests/support/close_fixture.h"
#include "tests/support/model_fixture.h"
#include "tests/support/settings_fixture.h"
#include "tests/support/virtual_time.h"
#include "tests/support/wait_until.h"

#include <QTest>

#include <chrono>

/// What happens while a load is waiting for its second part.
class Test_Settings_Load_Overlap : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }
    void init();
    void cleanup();

    void a_second_file_gets_the_first_ones_second_part_early_and_its_own_later();
    void a_dialog_that_stands_over_the_2000_ms_keeps_the_second_part_from_coming();
    void a_second_dialog_that_is_cancelled_keeps_the_second_part_from_coming();
    void off_between_the_parts_applies_the_second_and_sends_nothing();
    void the_window_may_close_between_the_parts();
    void a_second_part_without_a_load_does_nothing();

private:
    std::unique_ptr<Settings_Fixture> fixture;
    Settings_Lines first;
    Settings_Lines second;
};

void Test_Settings_Load_Overlap::init() {
    QFETCH_GLOBAL(const Switch_Model, model);
    first = Settings_Lines(model);
    second = Settings_Lines(model);
    second["KM Control: "] = "//c4";
    second["USB Control: "] = "//u4";
    fixture = std::make_unique<Settings_Fixture>(model);
    QVERIFY(fixture->open_filled());
    fixture->robot.clear_snapshots();
    fixture->silence_switch();
}

void Test_Settings_Load_Overlap::cleanup() { close_fixture(fixture); }

void Test_Settings_Load_Overlap::
    a_second_file_gets_the_first_ones_second_part_early_and_its_own_later() {
    const QString first_path = fixture->write(first.text(), "first.txt");
    const QString second_path = fixture->write(second.text(), "second.txt");
    QVERIFY2(fixture->load_first_part(first_path), fixture->robot.why());
    virtual_time::pass(std::chrono::seconds(1));
    QVERIFY2(fixture->load_first_part(second_path), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(),
             first.values(first_part_labels) + second.values(first_part_labels));
    // Both timers find a first part applied, and both apply the file that was read last.
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(),
             fixture->sent_in_second_part(second) + fixture->sent_in_second_part(second));
}

void Test_Settings_Load_Overlap::
    a_dialog_that_stands_over_the_2000_ms_keeps_the_second_part_from_coming() {
    QVERIFY2(fixture->load_first_part(fixture->write(first.text())), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    const QString second_path = fixture->write(second.text(), "second.txt");
    QByteArrayList meanwhile = {"not looked at"};
    fixture->expect_file_dialog("Select file", [&](QWidget& modal) {
        // The first timer fires in this time, and only it could send anything.
        (void)wait_until(
            [&] { return !fixture->window_fixture.device.received_commands().isEmpty(); },
            second_part_wait_ms + 500);
        meanwhile = fixture->window_fixture.device.received_commands();
        return choose_file(second_path)(modal);
    });
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QVERIFY2(fixture->robot.done(), fixture->robot.why());
    QCOMPARE(meanwhile, QByteArrayList());
    QCOMPARE(fixture->window_fixture.commands(), second.values(first_part_labels));
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.commands(), fixture->sent_in_second_part(second));
}

void Test_Settings_Load_Overlap::
    a_second_dialog_that_is_cancelled_keeps_the_second_part_from_coming() {
    QVERIFY2(fixture->load_first_part(fixture->write(first.text())), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    fixture->expect_file_dialog("Select file", press_key(Qt::Key_Escape));
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(fixture->window_fixture.commands(), fixture->start_commands());
    const auto boxes = fixture->robot.snapshots().size();
    QVERIFY(!wait_until([&] { return fixture->robot.snapshots().size() > boxes; },
                        second_part_wait_ms + 500));
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList());
}

void Test_Settings_Load_Overlap::off_between_the_parts_applies_the_second_and_sends_nothing() {
    QVERIFY2(fixture->load_first_part(fixture->write(first.text())), fixture->robot.why());
    (void)fixture->window_fixture.commands();
    fixture->window_fixture.button("pushButton_OFF_Connection").click();
    QVERIFY2(fixture->wait_for_second_part(), fixture->robot.why());
    QCOMPARE(fixture->window_fixture.combo("comboBox_USB_Control").currentIndex(), 2);
    QCOMPARE(fixture->window_fixture.label("label_Custom_4").text(), "500 499 SOFA");
    // The next commands that the switch receives are the questions of the next connection.
    fixture->window_fixture.button("pushButton_ON_Connection").click();
    QCOMPARE(fixture->window_fixture.commands(), fixture->start_commands());
}

void Test_Settings_Load_Overlap::the_window_may_close_between_the_parts() {
    QVERIFY2(fixture->load_first_part(fixture->write(first.text())), fixture->robot.why());
    const auto boxes = fixture->robot.snapshots().size();
    fixture->window_fixture.close();
    QVERIFY(!wait_until([&] { return fixture->robot.snapshots().size() > boxes; },
                        second_part_wait_ms + 500));
}

void Test_Settings_Load_Overlap::a_second_part_without_a_load_does_nothing() {
    QVERIFY(fixture->window_fixture.run_slot("load_second_part_of_settings"));
    QCOMPARE(fixture->robot.snapshots().size(), 0);
    QCOMPARE(fixture->window_fixture.commands(), QByteArrayList());
    QCOMPARE(fixture->window_fixture.combo("comboBox_USB_Control").currentIndex(), 0);
}

QTEST_MAIN(Test_Settings_Load_Overlap)

#include "test_settings_load_overlap.moc"
