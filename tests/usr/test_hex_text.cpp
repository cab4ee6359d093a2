// SPDX-License-Identifier: MIT

#include "usr/hex_text.h"

#include <QTest>

#include <stdexcept>

/// The conversions between texts, addresses and the hexadecimal text of frames and answers.
class Test_Hex_Text : public QObject {
    Q_OBJECT

private slots:
    void text_becomes_two_digits_per_utf8_byte_data();
    void text_becomes_two_digits_per_utf8_byte();
    void a_field_is_filled_with_zero_digits_and_never_cut_data();
    void a_field_is_filled_with_zero_digits_and_never_cut();
    void a_dotted_address_becomes_hex_in_its_own_order_data();
    void a_dotted_address_becomes_hex_in_its_own_order();
    void an_address_is_reversed_pair_by_pair_data();
    void an_address_is_reversed_pair_by_pair();
    void fewer_than_six_digits_cannot_be_reversed_data();
    void fewer_than_six_digits_cannot_be_reversed();
    void eight_digits_become_a_dotted_address_data();
    void eight_digits_become_a_dotted_address();
    void text_ends_at_the_first_zero_byte_data();
    void text_ends_at_the_first_zero_byte();
    void hex_is_read_as_utf8_data();
    void hex_is_read_as_utf8();
    void hex_becomes_bytes_data();
    void hex_becomes_bytes();
    void a_field_is_cut_where_the_text_ends();
    void a_field_behind_the_end_of_the_text_is_out_of_range();
};

void Test_Hex_Text::text_becomes_two_digits_per_utf8_byte_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hex");
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("one letter") << "a"
                                << "61";
    QTest::newRow("upper and lower case") << "aB"
                                          << "6142";
    QTest::newRow("digits and blank") << "1 2"
                                      << "312032";
    QTest::newRow("two-byte character") << QString::fromUtf8("ü") << "c3bc";
    QTest::newRow("three-byte character") << QString::fromUtf8("€") << "e282ac";
    QTest::newRow("four-byte character") << QString::fromUtf8("\U0001F600") << "f09f9880";
    QTest::newRow("control characters") << "\t\n"
                                        << "090a";
}

void Test_Hex_Text::text_becomes_two_digits_per_utf8_byte() {
    QFETCH(const QString, text);
    QFETCH(const QString, hex);
    QCOMPARE(text_to_hex(text), hex);
}

void Test_Hex_Text::a_field_is_filled_with_zero_digits_and_never_cut_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("hex");
    QTest::newRow("empty") << "" << 12 << "000000000000";
    QTest::newRow("short") << "ab" << 12 << "616200000000";
    QTest::newRow("just fits") << "abcdef" << 12 << "616263646566";
    QTest::newRow("longer than the field") << "abcdefg" << 12 << "61626364656667";
    QTest::newRow("name") << "A" << 32 << "41000000000000000000000000000000";
    QTest::newRow("sixteen two-byte characters")
        << QString(16, QChar(0xfc)) << 32 << QString("c3bc").repeated(16);
}

void Test_Hex_Text::a_field_is_filled_with_zero_digits_and_never_cut() {
    QFETCH(const QString, text);
    QFETCH(const int, width);
    QFETCH(const QString, hex);
    QCOMPARE(text_to_hex_field(text, width), hex);
}

void Test_Hex_Text::a_dotted_address_becomes_hex_in_its_own_order_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("hex");
    QTest::newRow("ordinary") << "192.168.0.7"
                              << "c0a80007";
    QTest::newRow("lowest") << "0.0.0.0"
                            << "00000000";
    QTest::newRow("highest") << "255.255.255.255"
                             << "ffffffff";
    QTest::newRow("leading zeros are decimal") << "010.008.009.1"
                                               << "0a080901";
    QTest::newRow("number too high") << "10.0.0.256"
                                     << "";
    QTest::newRow("first number too high") << "999.1.1.1"
                                           << "";
    QTest::newRow("number far too high") << "1.1.1.99999999999999999999"
                                         << "";
    QTest::newRow("negative") << "1.1.1.-1"
                              << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("empty part inside") << "10..0.1"
                                       << "";
    QTest::newRow("empty part at the end") << "10.0.0."
                                           << "";
    QTest::newRow("letters") << "a.b.c.d"
                             << "";
    QTest::newRow("hexadecimal") << "0x10.0.0.1"
                                 << "";
    QTest::newRow("failed reading") << "-1"
                                    << "";
    QTest::newRow("three parts") << "1.2.3"
                                 << "010203";
    QTest::newRow("five parts") << "1.2.3.4.5"
                                << "0102030405";
}

void Test_Hex_Text::a_dotted_address_becomes_hex_in_its_own_order() {
    QFETCH(const QString, text);
    QFETCH(const QString, hex);
    QCOMPARE(dotted_to_hex(text), hex);
}

void Test_Hex_Text::an_address_is_reversed_pair_by_pair_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reversed");
    QTest::newRow("eight digits") << "c0a80007"
                                  << "0700a8c0";
    QTest::newRow("six digits") << "010203"
                                << "030201";
    QTest::newRow("seven digits") << "0102030"
                                  << "0030201";
    QTest::newRow("ten digits lose the fifth pair") << "0102030405"
                                                    << "04030201";
}

void Test_Hex_Text::an_address_is_reversed_pair_by_pair() {
    QFETCH(const QString, text);
    QFETCH(const QString, reversed);
    QCOMPARE(reverse_hex_bytes(text), reversed);
}

void Test_Hex_Text::fewer_than_six_digits_cannot_be_reversed_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("two") << "01";
    QTest::newRow("four") << "0102";
    QTest::newRow("five") << "01020";
}

void Test_Hex_Text::fewer_than_six_digits_cannot_be_reversed() {
    QFETCH(const QString, text);
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, static_cast<void>(reverse_hex_bytes(text)));
}

void Test_Hex_Text::eight_digits_become_a_dotted_address_data() {
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("dotted");
    QTest::newRow("ordinary") << "c0a80007"
                              << "192.168.0.7";
    QTest::newRow("lowest") << "00000000"
                            << "0.0.0.0";
    QTest::newRow("highest") << "ffffffff"
                             << "255.255.255.255";
    QTest::newRow("upper case") << "C0A80007"
                                << "192.168.0.7";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("seven digits") << "c0a8000"
                                  << "";
    QTest::newRow("nine digits") << "c0a800071"
                                 << "";
}

void Test_Hex_Text::eight_digits_become_a_dotted_address() {
    QFETCH(const QString, hex);
    QFETCH(const QString, dotted);
    QCOMPARE(hex_to_dotted(hex), dotted);
}

void Test_Hex_Text::text_ends_at_the_first_zero_byte_data() {
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("cut");
    QTest::newRow("filled up") << "4142000000"
                               << "4142";
    QTest::newRow("zero byte at once") << "00414200"
                                       << "";
    QTest::newRow("no zero byte") << "414243"
                                  << "414243";
    QTest::newRow("zeros across two pairs do not count") << "40044100"
                                                         << "400441";
    QTest::newRow("what follows does not count") << "41004200"
                                                 << "41";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("single zero digit at the end") << "410"
                                                  << "410";
}

void Test_Hex_Text::text_ends_at_the_first_zero_byte() {
    QFETCH(const QString, hex);
    QFETCH(const QString, cut);
    QCOMPARE(cut_at_zero_byte(hex), cut);
}

void Test_Hex_Text::hex_is_read_as_utf8_data() {
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << "4f7374"
                             << "Ost";
    QTest::newRow("two-byte character") << "c3bc" << QString::fromUtf8("ü");
    QTest::newRow("no UTF-8") << "41ff42" << QString("A") + QChar(0xfffd) + "B";
    QTest::newRow("cut character") << "41c3" << QString("A") + QChar(0xfffd);
    QTest::newRow("empty") << ""
                           << "";
}

void Test_Hex_Text::hex_is_read_as_utf8() {
    QFETCH(const QString, hex);
    QFETCH(const QString, text);
    QCOMPARE(hex_to_text(hex), text);
}

void Test_Hex_Text::hex_becomes_bytes_data() {
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << "" << QByteArray();
    QTest::newRow("search frame") << "ff010102" << QByteArray("\xff\x01\x01\x02", 4);
    QTest::newRow("zero byte") << "0041" << QByteArray("\0A", 2);
    QTest::newRow("last single digit") << "41f" << QByteArray("A\x0f", 2);
    QTest::newRow("one digit") << "7" << QByteArray("\x07", 1);
}

void Test_Hex_Text::hex_becomes_bytes() {
    QFETCH(const QString, hex);
    QFETCH(const QByteArray, bytes);
    QCOMPARE(hex_to_bytes(hex), bytes);
}

void Test_Hex_Text::a_field_is_cut_where_the_text_ends() {
    QCOMPARE(cut_field("0123456789", {2, 4}), QString("2345"));
    QCOMPARE(cut_field("0123456789", {8, 4}), QString("89"));
    QCOMPARE(cut_field("0123456789", {10, 4}), QString());
}

void Test_Hex_Text::a_field_behind_the_end_of_the_text_is_out_of_range() {
    QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                             static_cast<void>(cut_field("0123456789", {11, 4})));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, static_cast<void>(cut_field("", {1, 1})));
}

QTEST_APPLESS_MAIN(Test_Hex_Text)
#include "test_hex_text.moc"
