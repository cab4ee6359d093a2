// SPDX-License-Identifier: MIT

#include "link/custom_setting.h"

#include <QTest>

#include <stdexcept>

/// The custom entries and the channels' resolutions, as reports and files write them.
class Test_Custom_Setting : public QObject {
    Q_OBJECT

private slots:
    void a_line_is_read_by_its_columns_data();
    void a_line_is_read_by_its_columns();
    void a_line_shorter_than_its_columns_is_out_of_range_data();
    void a_line_shorter_than_its_columns_is_out_of_range();
    void a_name_loses_its_blanks_and_keeps_its_tabs();
    void a_name_beyond_the_end_is_out_of_range();
    void resolution_fields_are_digits_and_custom_entries_data();
    void resolution_fields_are_digits_and_custom_entries();
    void resolutions_stand_one_character_behind_their_key_data();
    void resolutions_stand_one_character_behind_their_key();
    void missing_resolutions_are_out_of_range();
};

namespace {

QStringList as_texts(const std::vector<std::string>& values) {
    QStringList texts;
    for (const std::string& value : values) {
        texts.append(QString::fromStdString(value));
    }
    return texts;
}

} // namespace

void Test_Custom_Setting::a_line_is_read_by_its_columns_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "150 300 DESK"
                           << "150"
                           << "300"
                           << "DESK";
    QTest::newRow("blanks in the name") << "001 500  DESK TOP "
                                        << "001"
                                        << "500"
                                        << "DESKTOP";
    QTest::newRow("tabs in the name") << "150\t300\t\tDE\tSK"
                                      << "150"
                                      << "300"
                                      << "DESK";
    QTest::newRow("no name") << "150 300 "
                             << "150"
                             << "300"
                             << "";
    QTest::newRow("any separators") << "150x300yDESK"
                                    << "150"
                                    << "300"
                                    << "DESK";
    QTest::newRow("carriage return") << "150 300 DESK\r"
                                     << "150"
                                     << "300"
                                     << "DESK\r";
    QTest::newRow("beyond ASCII") << QString::fromUtf8("150 300 Grün") << "150"
                                  << "300" << QString::fromUtf8("Grün");
}

void Test_Custom_Setting::a_line_is_read_by_its_columns() {
    QFETCH(QString, line);
    QFETCH(QString, x);
    QFETCH(QString, y);
    QFETCH(QString, name);
    const Custom_Setting setting = read_custom_setting(line);
    QCOMPARE(setting.x, x);
    QCOMPARE(setting.y, y);
    QCOMPARE(setting.name, name);
}

void Test_Custom_Setting::a_line_shorter_than_its_columns_is_out_of_range_data() {
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << "";
    QTest::newRow("a missing value") << "0";
    QTest::newRow("one short") << "150 300";
}

void Test_Custom_Setting::a_line_shorter_than_its_columns_is_out_of_range() {
    QFETCH(QString, line);
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, read_custom_setting(line));
}

void Test_Custom_Setting::a_name_loses_its_blanks_and_keeps_its_tabs() {
    QCOMPARE(custom_setting_name("150 300  DE SK ", name_offset_in_report), "DESK");
    QCOMPARE(custom_setting_name("150 300 DE\tSK", name_offset_in_report), "DE\tSK");
    QCOMPARE(custom_setting_name("150 300 ", name_offset_in_report), "");
}

void Test_Custom_Setting::a_name_beyond_the_end_is_out_of_range() {
    QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                             custom_setting_name("150 300", name_offset_in_report));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, custom_setting_name("0", name_offset_in_report));
}

void Test_Custom_Setting::resolution_fields_are_digits_and_custom_entries_data() {
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QStringList>("values");
    QTest::newRow("mixed") << "1 C2 3 4" << QStringList{"1", "11", "3", "4"};
    QTest::newRow("all custom") << "C1 C2 C3 C4" << QStringList{"10", "11", "12", "13"};
    QTest::newRow("all fixed") << "9 8 1 5" << QStringList{"9", "8", "1", "5"};
    QTest::newRow("any separator") << "1,C2;3/4" << QStringList{"1", "11", "3", "4"};
    QTest::newRow("more separators") << "1   2 \n 3  4" << QStringList{"1", "2", "3", "4"};
    QTest::newRow("other letters") << "x1 y2\nBuz3" << QStringList{"1", "2", "3"};
    QTest::newRow("a fifth field is ignored") << "1 2 3 4 5 6" << QStringList{"1", "2", "3", "4"};
    QTest::newRow("fewer fields") << "1 2" << QStringList{"1", "2"};
    QTest::newRow("a digit covers its separator") << "12 3" << QStringList{"1", "3"};
    QTest::newRow("a custom entry cut off") << "1 2 3 C" << QStringList{"1", "2", "3"};
    QTest::newRow("empty") << "" << QStringList();
}

void Test_Custom_Setting::resolution_fields_are_digits_and_custom_entries() {
    QFETCH(QString, fields);
    QFETCH(QStringList, values);
    QCOMPARE(as_texts(parse_channels_resolution(fields.toStdString())), values);
}

void Test_Custom_Setting::resolutions_stand_one_character_behind_their_key_data() {
    QTest::addColumn<QString>("report");
    QTest::addColumn<QStringList>("values");
    QTest::newRow("in their line") << "KM\nChannels resolution: 1 C2 3 4\nBuzzer: on\n"
                                   << QStringList{"1", "11", "3", "4"};
    QTest::newRow("in the next line") << "Channels resolution:\n1 C2 3 4\n"
                                      << QStringList{"1", "11", "3", "4"};
    QTest::newRow("the first character does not count")
        << "Channels resolution:91 2" << QStringList{"1", "2"};
    QTest::newRow("twelve characters and no more")
        << "Channels resolution: C1 C2 C3    4" << QStringList{"10", "11", "12"};
    QTest::newRow("the twelfth character counts")
        << "Channels resolution: C1 C2 C3   4" << QStringList{"10", "11", "12", "4"};
    QTest::newRow("CR LF") << "Channels resolution: 1 2 3 4\r\nBuzzer: on\r\n"
                           << QStringList{"1", "2", "3", "4"};
    QTest::newRow("only the one character") << "Channels resolution: " << QStringList();
}

void Test_Custom_Setting::resolutions_stand_one_character_behind_their_key() {
    QFETCH(QString, report);
    QFETCH(QStringList, values);
    const std::string text = report.toStdString();
    QCOMPARE(as_texts(read_channel_resolutions(text)), values);
}

void Test_Custom_Setting::missing_resolutions_are_out_of_range() {
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, read_channel_resolutions("Buzzer: on\n"));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, read_channel_resolutions("Channels resolution:"));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, read_channel_resolutions(""));
}

QTEST_GUILESS_MAIN(Test_Custom_Setting)

#include "test_custom_setting.moc"
