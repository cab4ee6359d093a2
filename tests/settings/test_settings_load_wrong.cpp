// SPDX-License-Identifier: MIT

#include "tests/settings/line_load_test.h"
#include "tests/settings/settings_snapshot.h"

#include <QTest>

/// The effect of a line whose value has the wrong form: the rest of the file is loaded as usual.
class Test_Settings_Load_Wrong : public Line_Load_Test {
    Q_OBJECT

private slots:
    void initTestCase_data();

    void a_wrong_value_data();
    void a_wrong_value();
    void a_number_that_is_none_is_logged_only_data();
    void a_number_that_is_none_is_logged_only();
    void a_custom_line_is_read_from_its_sixteenth_character_data();
    void a_custom_line_is_read_from_its_sixteenth_character();
    void coordinates_outside_the_grid_leave_the_layout_and_the_load_goes_on();
    void coordinates_that_are_no_numbers_leave_the_marks_of_one_port_more();
};

void Test_Settings_Load_Wrong::initTestCase_data() {
    // A Plus loads files exactly as a Lite does, and each of the many rows takes a second.
    QTest::addColumn<Switch_Model>("model");
    QTest::newRow("Lite") << Switch_Model::lite;
    QTest::newRow("Pro") << Switch_Model::pro;
}

void Test_Settings_Load_Wrong::a_wrong_value_data() {
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("first_part_errors");
    QTest::addColumn<int>("second_part_errors");
    QTest::addColumn<int>("mode_errors");
    QTest::addColumn<Snapshot>("changed");
    const auto row = [](const char* label, const char* value, int first, int second,
                        const Snapshot& changed, int mode = 0) {
        QTest::addRow("%s%s", label, value)
            << QByteArray(label) << QByteArray(value) << first << second << mode << changed;
    };
    row("KM Control: ", "nonsense", 0, 0, {{"km", "3"}});
    row("KM Control: ", "//u2", 0, 0, {{"km", "3"}});
    row("KM Control: ", "//c0", 0, 0, {{"km", "3"}});
    row("KM Control: ", "//c9", 0, 0, {{"km", "-1"}});
    row("KM Control: ", "//c 3rd", 0, 0, {{"km", "2"}});
    row("KM Control: ", "x//c3", 0, 0, {{"km", "2"}});
    row("USB Control: ", "//u-1", 0, 0, {{"usb", "-1"}});
    row("Mouse Mode: ", "//KM", 0, 0, {{"mode", "0"}});
    row("Mouse Mode: ", "Relative Mouse Mode", 0, 0, {});
    row("Limit Ports: ", "//Dx", 0, 1, {{"limit", "2"}, {"tiles", "..../.12./.34./...."}});
    row("Limit Ports: ", "//D9999999999", 0, 1, {{"limit", "2"}, {"tiles", "..../.12./.34./...."}});
    row("Limit Ports: ", "//D9", 0, 0, {{"limit", "-1"}, {"tiles", "..../.12./.cd./...."}});
    // One below the smallest number there is.
    row("Limit Ports: ", "//D-2147483648", 0, 0,
        {{"limit", "2"}, {"tiles", "..../.12./.34./...."}});
    row("Limit Ports: ", "//D2", 0, 0, {{"limit", "0"}, {"tiles", "..../.12./.cd./...."}});
    row("Cursor Rolling: ", "//o2", 0, 0, {{"roll", "0"}});
    row("Cursor Rolling: ", "Enabled", 0, 0, {});
    row("Mouse Parking: ", "//MP 5", 0, 0, {{"parking", "5|0"}});
    row("Mouse Parking: ", "//MP  6", 0, 0, {{"parking", "0|0"}});
    row("Mouse Parking: ", "5 6", 0, 0, {{"parking", "0|0"}});
    row("Mouse Parking: ", "//MP here there", 0, 0, {{"parking", "here| there"}});
    row("Resolution channel 1: ", "//CE 2 5", 0, 0, {{"resolutions", "-1 12 9 8"}});
    row("Resolution channel 1: ", "//CE 1 14", 0, 0, {{"resolutions", "-1 12 9 8"}});
    row("Resolution channel 1: ", "//CE 1 0", 0, 0, {{"resolutions", "-1 12 9 8"}});
    row("Grid settings: ", "nonsense", 0, 0, {});
    row("Coordinates channel 2: ", "one two", 0, 1, {{"tiles", "1234/..../..../...."}});
    row("Coordinates channel 2: ", "3", 0, 0, {{"tiles", "..../.1../.3d./2..."}});
    row("Buzzer: ", "on", 0, 0, {{"buzzer", "on"}});
    row("Buzzer: ", "//b1", 0, 0, {});
    row("Data from mouse movement label 1: ", "1234567", 0, 0,
        {{"label 1", "1234567"}, {"fields", "100|100|DESK"}}, 1);
    row("Data from mouse movement label 1: ", "12345678", 0, 0,
        {{"label 1", "12345678"}, {"fields", "123|567|"}});
}

void Test_Settings_Load_Wrong::a_wrong_value() {
    QFETCH(const QByteArray, label);
    QFETCH(const QByteArray, value);
    QFETCH(const int, first_part_errors);
    QFETCH(const int, second_part_errors);
    QFETCH(const int, mode_errors);
    QFETCH(const Snapshot, changed);
    lines[label] = value;
    QVERIFY2(load(first_part_errors, second_part_errors, mode_errors), fixture->robot.why());
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture, changed));
    QCOMPARE(fixture->window_fixture.commands(),
             lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
}

void Test_Settings_Load_Wrong::a_number_that_is_none_is_logged_only_data() {
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<Snapshot>("changed");
    QTest::addRow("KM") << QByteArray("KM Control: ") << QByteArray("//cx")
                        << Snapshot{{"km", "3"}};
    QTest::addRow("USB") << QByteArray("USB Control: ") << QByteArray("//u ")
                         << Snapshot{{"usb", "3"}};
    QTest::addRow("resolution, too large")
        << QByteArray("Resolution channel 4: ") << QByteArray("//CE 4 99999999999")
        << Snapshot{{"resolutions", "1 12 9 0"}};
}

void Test_Settings_Load_Wrong::a_number_that_is_none_is_logged_only() {
    QFETCH(const QByteArray, label);
    QFETCH(const QByteArray, value);
    QFETCH(const Snapshot, changed);
    lines[label] = value;
    QVERIFY2(load(0, 0), fixture->robot.why());
    QCOMPARE(log->entries().size(), 1);
    QCOMPARE(look_at(*fixture), good_snapshot(*fixture, changed));
}

void Test_Settings_Load_Wrong::a_custom_line_is_read_from_its_sixteenth_character_data() {
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<int>("errors");
    QTest::addColumn<QString>("names");
    QTest::addRow("14 characters") << QByteArray("//MM C2 1 2 AB") << 1 << "BANK LAMP SOFA";
    QTest::addRow("15 characters") << QByteArray("//MM C2 11 22 A") << 0 << "BANK  LAMP SOFA";
    QTest::addRow("16 characters") << QByteArray("//MM C2 111 222 ") << 0 << "BANK  LAMP SOFA";
    QTest::addRow("short figures")
        << QByteArray("//MM C2 5 40 WINDOW") << 0 << "BANK NDOW LAMP SOFA";
    QTest::addRow("no form at all")
        << QByteArray("abcdefghijklmnopq r s") << 0 << "BANK pqrs LAMP SOFA";
    QTest::addRow("several words")
        << QByteArray("//MM C2 111 222 A b  C") << 0 << "BANK AbC LAMP SOFA";
}

void Test_Settings_Load_Wrong::a_custom_line_is_read_from_its_sixteenth_character() {
    QFETCH(const QByteArray, value);
    QFETCH(const int, errors);
    QFETCH(const QString, names);
    lines["Custom mouse movement setting 2: "] = value;
    QVERIFY2(load(errors, 0), fixture->robot.why());
    QCOMPARE(look_at(*fixture).value("names"), names);
    // The command is sent completely.
    QCOMPARE(fixture->window_fixture.commands().value(2), value);
}

void Test_Settings_Load_Wrong::
    coordinates_outside_the_grid_leave_the_layout_and_the_load_goes_on() {
    lines["Limit Ports: "] = "//D4";
    for (const char* place : {"4 0", "0 4", "-1 0", "0 -1", "999 999"}) {
        lines["Coordinates channel 3: "] = place;
        QVERIFY2(load(0, 0), fixture->robot.why());
        QCOMPARE(look_at(*fixture).value("tiles"), "1234/..../..../....");
        QCOMPARE(look_at(*fixture).value("buzzer"), "off");
        QCOMPARE(fixture->window_fixture.commands(),
                 lines.values(first_part_labels) + fixture->sent_in_second_part(lines));
    }
}

void Test_Settings_Load_Wrong::coordinates_that_are_no_numbers_leave_the_marks_of_one_port_more() {
    lines["Coordinates channel 1: "] = "x y";
    lines["Limit Ports: "] = "//D2";
    QVERIFY2(load(0, 1), fixture->robot.why());
    QCOMPARE(look_at(*fixture).value("limit"), "0");
    QCOMPARE(look_at(*fixture).value("tiles"), "123d/..../..../....");
}

QTEST_MAIN(Test_Settings_Load_Wrong)

#include "test_settings_load_wrong.moc"
