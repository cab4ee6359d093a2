// SPDX-License-Identifier: MIT

#include "link/report_values.h"
#include "link/switch_protocol.h"

#include <QTest>

#include <stdexcept>

/// Extracting values from the switch's free text.
class Test_Report_Values : public QObject {
    Q_OBJECT

private slots:
    void a_value_runs_from_its_key_to_the_line_feed_data();
    void a_value_runs_from_its_key_to_the_line_feed();
    void a_token_ends_at_the_first_blank_data();
    void a_token_ends_at_the_first_blank();
    void a_layout_position_is_two_characters_data();
    void a_layout_position_is_two_characters();
    void a_layout_position_cut_short_is_out_of_range_data();
    void a_layout_position_cut_short_is_out_of_range();
    void an_empty_layout_text_gives_an_empty_position();
    void the_rest_behind_a_key_passes_line_ends();
};

namespace {

QString as_text(const std::string& text) { return QString::fromStdString(text); }

} // namespace

void Test_Report_Values::a_value_runs_from_its_key_to_the_line_feed_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");

    const QString limit = "KM Port Limit: ";
    QTest::newRow("a line") << limit << "KM Port Limit: 3\nmore"
                            << "3";
    QTest::newRow("the end of the text") << limit << "KM Port Limit: 4"
                                         << "4";
    QTest::newRow("missing key") << limit << "KM Port: 3\n"
                                 << "0";
    QTest::newRow("empty text") << limit << ""
                                << "0";
    QTest::newRow("empty value") << limit << "KM Port Limit: \n3\n"
                                 << "0";
    QTest::newRow("empty value at the end") << limit << "KM Port Limit: "
                                            << "0";
    QTest::newRow("a real zero") << limit << "KM Port Limit: 0\n"
                                 << "0";
    QTest::newRow("carriage return stays") << limit << "KM Port Limit: 3\r\n"
                                           << "3\r";
    QTest::newRow("a lone carriage return") << limit << "KM Port Limit: \r\n"
                                            << "\r";
    QTest::newRow("inside a longer line") << limit << "unit 7: KM Port Limit: 2 of 4\nnext"
                                          << "2 of 4";
    QTest::newRow("the first occurrence wins") << limit << "KM Port Limit: 2\nKM Port Limit: 3\n"
                                               << "2";
    QTest::newRow("case counts") << limit << "km port limit: 2\n"
                                 << "0";
    QTest::newRow("blanks of the key count") << limit << "KM Port Limit:2\n"
                                             << "0";
    QTest::newRow("blanks of the value stay") << limit << "KM Port Limit:  2 \n"
                                              << " 2 ";
    QTest::newRow("a key with a tab") << "C1\t"
                                      << "C1\t150 300 DESK\n"
                                      << "150 300 DESK";
    QTest::newRow("the layout line") << "//FF"
                                     << "//BP\n//FF01B01FF02B02\n"
                                     << "01B01FF02B02";
    QTest::newRow("the USB line without a colon") << "Current USB Control "
                                                  << "Current USB Control 2\n"
                                                  << "2";
    QTest::newRow("the USB line with a colon at once") << "Current USB Control "
                                                       << "Current USB Control: 2\n"
                                                       << "0";
    QTest::newRow("the USB line with a colon behind the blank") << "Current USB Control "
                                                                << "Current USB Control : 2\n"
                                                                << ": 2";
    QTest::newRow("beyond ASCII") << limit << QString::fromUtf8("KM Port Limit: drei €\n")
                                  << QString::fromUtf8("drei €");
}

void Test_Report_Values::a_value_runs_from_its_key_to_the_line_feed() {
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, value);
    QCOMPARE(as_text(get_report_value(key.toStdString(), text.toStdString())), value);
}

void Test_Report_Values::a_token_ends_at_the_first_blank_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("token");
    QTest::newRow("a blank behind") << "Current parking location: X=50 Y=60\n"
                                    << "50";
    QTest::newRow("no blank") << "Current parking location: X=50\nY=60\n"
                              << "50";
    QTest::newRow("end of the text") << "Current parking location: X=50"
                                     << "50";
    QTest::newRow("nothing before the blank") << "Current parking location: X= Y=60\n"
                                              << "0";
    QTest::newRow("missing key") << "X=50 Y=60\n"
                                 << "0";
    QTest::newRow("empty value") << "Current parking location: X=\n"
                                 << "0";
}

void Test_Report_Values::a_token_ends_at_the_first_blank() {
    QFETCH(QString, text);
    QFETCH(QString, token);
    QCOMPARE(as_text(get_report_token(switch_protocol::parking_x_key, text.toStdString())), token);
}

void Test_Report_Values::a_layout_position_is_two_characters_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("position");
    const QString whole = "//FF01B09FF02B16FF03B01FF04B10\n";
    QTest::newRow("channel 1") << "01B" << whole << "09";
    QTest::newRow("channel 2") << "02B" << whole << "16";
    QTest::newRow("channel 3") << "03B" << whole << "01";
    QTest::newRow("channel 4") << "04B" << whole << "10";
    QTest::newRow("without the key of the line") << "01B"
                                                 << "01B09FF02B16"
                                                 << "09";
    QTest::newRow("the end of the text") << "04B"
                                         << "FF04B07"
                                         << "07";
    QTest::newRow("no digits") << "01B"
                               << "01Bxyz"
                               << "xy";
    QTest::newRow("the key in a later line") << "02B"
                                             << "Saving\n//FF01B01FF02B02"
                                             << "02";
}

void Test_Report_Values::a_layout_position_is_two_characters() {
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QString, position);
    QCOMPARE(as_text(get_layout_position(key.toStdString(), text.toStdString())), position);
}

void Test_Report_Values::a_layout_position_cut_short_is_out_of_range_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("missing key") << "FF02B16FF03B01FF04B10";
    QTest::newRow("no digit") << "FF01B";
    QTest::newRow("one digit") << "FF01B9";
    QTest::newRow("a line end between the digits") << "FF01B0\n9";
    QTest::newRow("the text of a missing layout line") << "0";
}

void Test_Report_Values::a_layout_position_cut_short_is_out_of_range() {
    QFETCH(QString, text);
    const std::string layout = text.toStdString();
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, get_layout_position("01B", layout));
}

void Test_Report_Values::an_empty_layout_text_gives_an_empty_position() {
    QCOMPARE(get_layout_position("01B", ""), "");
}

void Test_Report_Values::the_rest_behind_a_key_passes_line_ends() {
    QCOMPARE(std::string(find_rest_behind("**A ", "x\n**A 1 3\nBuzzer: on")), "1 3\nBuzzer: on");
    QVERIFY(find_rest_behind("**A ", "x\n**B 1").empty());
    QVERIFY(find_rest_behind("**A ", "**A ").empty());
}

QTEST_GUILESS_MAIN(Test_Report_Values)

#include "test_report_values.moc"
