// SPDX-License-Identifier: MIT

#include "tests/settings/line_load_test.h"
#include "tests/settings/settings_snapshot.h"
#include "tests/support/model_fixture.h"

#include <QTest>

/// The effect of each missing line of a file: the rest of the file is loaded as usual.
class Test_Settings_Load_Missing : public Line_Load_Test {
    Q_OBJECT

private slots:
    void initTestCase_data() { add_model_rows(); }

    void a_missing_line_data();
    void a_missing_line();
    void a_resolution_of_a_missing_custom_line_is_no_selection();
    void a_missing_grid_line_sends_an_empty_command_and_moves_the_tiles();
    void an_error_is_logged_before_its_box();
    void the_flags_are_down_while_an_error_box_stands();
};

void Test_Settings_Load_Missing::a_missing_line_data() {
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<int>("first_part_errors");
    QTest::addColumn<int>("second_part_errors");
    QTest::addColumn<int>("mode_errors");
    QTest::addColumn<Snapshot>("changed");
    const auto row = [](const char* label, int first, int second, const Snapshot& changed,
                        int mode = 0) {
        QTest::addRow("%s", label) << QByteArray(label) << first << second << mode << changed;
    };
    row("KM Control: ", 0, 0, {{"km", "3"}});
    row("USB Control: ", 0, 0, {{"usb", "3"}});
    row("Mouse Mode: ", 0, 0, {{"mode", "0"}});
    row("Limit Ports: ", 0, 0, {{"limit", "-1"}, {"tiles", "..../.12./.cd./...."}});
    row("Cursor Rolling: ", 0, 0, {{"roll", "0"}});
    row("Mouse Parking: ", 0, 0, {{"parking", "0|0"}});
    // Each name after a missing one is one item earlier, and the last item is gone.
    row("Custom mouse movement setting 1: ", 1, 0,
        {{"names", "TREE LAMP SOFA"}, {"resolutions", "1 -1 9 8"}});
    row("Custom mouse movement setting 2: ", 1, 0,
        {{"names", "BANK LAMP SOFA"}, {"resolutions", "1 -1 9 8"}});
    row("Custom mouse movement setting 3: ", 1, 0,
        {{"names", "BANK TREE SOFA"}, {"resolutions", "1 -1 9 8"}});
    row("Custom mouse movement setting 4: ", 1, 0,
        {{"names", "BANK TREE LAMP"}, {"resolutions", "1 -1 9 8"}});
    row("Resolution channel 1: ", 0, 0, {{"resolutions", "-1 12 9 8"}});
    row("Resolution channel 2: ", 0, 0, {{"resolutions", "1 -1 9 8"}});
    row("Resolution channel 3: ", 0, 0, {{"resolutions", "1 12 -1 8"}});
    row("Resolution channel 4: ", 0, 0, {{"resolutions", "1 12 9 -1"}});
    row("Grid settings: ", 0, 0, {});
    row("Coordinates channel 1: ", 0, 0, {{"tiles", "1.../..2./.3d./...."}});
    row("Coordinates channel 4: ", 0, 0, {{"tiles", "d.../.12./.3../...."}});
    row("Buzzer: ", 0, 0, {});
    row("Data from mouse movement label 1: ", 0, 0, {{"label 1", ""}, {"fields", "100|100|DESK"}},
        1);
    row("Data from mouse movement label 2: ", 0, 0, {{"label 2", ""}});
    row("Data from mouse movement label 3: ", 0, 0, {{"label 3", ""}});
    row("Data from mouse movement label 4: ", 0, 0, {{"label 4", ""}});
}

void Test_Settings_Load_Missing::a_missing_line() {
    QFETCH(const QByteArray, label);
    QFETCH(const int, first_part_errors);
    QFETCH(const int, second_part_errors);
    QFETCH(const int, mode_errors);
    QFETCH(const Snapshot, changed);
    lines.remove(label);
    QVERIFY2(load(first_part_errors, second_part_errors, mode_errors), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture, changed));
    // A lone carriage return is sent instead of a missing command.
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
}

void Test_Settings_Load_Missing::a_resolution_of_a_missing_custom_line_is_no_selection() {
    for (const char digit : {'1', '2', '3', '4'}) {
        lines.remove(QByteArray("Custom mouse movement setting ") + digit + ": ");
        lines[QByteArray("Resolution channel ") + digit + ": "] =
            QByteArray("//CE ") + digit + " 1" + static_cast<char>(digit - 1);
    }
    QVERIFY2(load(4, 0), fixture->robot.why());
    QCOMPARE(look_at(*fixture).value("names"), "");
    QCOMPARE(look_at(*fixture).value("resolutions"), "-1 -1 -1 -1");
    QCOMPARE(fixture->window_fixture.commands().mid(5, 4),
             (QByteArrayList{"//CE 1 10", "//CE 2 11", "//CE 3 12", "//CE 4 13"}));
}

void Test_Settings_Load_Missing::a_missing_grid_line_sends_an_empty_command_and_moves_the_tiles() {
    lines.remove("Grid settings: ");
    QVERIFY2(load(0, 0), fixture->robot.why());
    QCOMPARE(look_at(*fixture).value("tiles"), "..../.12./.3d./....");
    QCOMPARE(fixture->window_fixture.commands().value(13), QByteArray());
}

void Test_Settings_Load_Missing::an_error_is_logged_before_its_box() {
    lines.remove("Custom mouse movement setting 2: ");
    QStringList entries_at_box;
    fixture->expect_file_dialog("Select file", choose_file(fixture->write(lines.text())));
    fixture->robot.expect({.text = "Error in setting the interface", .action = [&](QWidget& box) {
                               entries_at_box = log->entries();
                               return press_key(Qt::Key_Return)(box);
                           }});
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(entries_at_box, QStringList{"Error in setting the interface"});
}

void Test_Settings_Load_Missing::the_flags_are_down_while_an_error_box_stands() {
    lines.remove("Custom mouse movement setting 1: ");
    fixture->expect_file_dialog("Select file", choose_file(fixture->write(lines.text())));
    fixture->robot.expect(
        {.text = "Error in setting the interface", .action = [&](QWidget& box) {
             fixture->window_fixture.combo("comboBox_USB_Control").setCurrentIndex(0);
             fixture->window_fixture.button("pushButton_Soft_Reset").click();
             return press_key(Qt::Key_Return)(box);
         }});
    fixture->window_fixture.button("pushButton_Load_Settings_File").click();
    QCOMPARE(fixture->window_fixture.combo("comboBox_USB_Control").currentIndex(), 0);
    // Neither the choice nor the reset is among the commands.
    QCOMPARE(fixture->window_fixture.commands(), lines.values(first_part_labels));
}

QTEST_MAIN(Test_Settings_Load_Missing)

#include "test_settings_load_missing.moc"
