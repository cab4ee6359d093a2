// SPDX-License-Identifier: MIT

#include "usr/adapter_frames.h"
#include "usr/adapter_replies.h"

#include <QTest>

#include <stdexcept>

/// The frames byte for byte, and the fields of the adapter's answers.
class Test_Adapter_Frames : public QObject {
    Q_OBJECT

private slots:
    void the_search_frame_is_four_fixed_bytes();
    void user_name_and_password_stand_behind_the_mac_address_of_a_login();
    void the_checksum_of_the_known_login_is_9f();
    void an_apply_differs_from_a_login_in_command_and_checksum_only();
    void credentials_travel_as_utf8();
    void a_login_without_mac_address_is_shorter();
    void the_configuration_has_89_bytes_with_every_field_in_its_place_data();
    void the_configuration_has_89_bytes_with_every_field_in_its_place();
    void the_configuration_ends_in_its_checksum();
    void a_name_of_16_two_byte_characters_grows_the_frame_but_not_its_length_byte();
    void an_address_that_cannot_be_written_is_out_of_range_data();
    void an_address_that_cannot_be_written_is_out_of_range();
    void an_address_of_three_numbers_shortens_the_frame();
    void a_checksum_leaves_out_the_first_byte_data();
    void a_checksum_leaves_out_the_first_byte();
    void a_reply_names_its_adapter_data();
    void a_reply_names_its_adapter();
    void a_reply_that_ends_before_the_name_is_out_of_range();
    void the_allocation_is_dhcp_for_40_alone_data();
    void the_allocation_is_dhcp_for_40_alone();
};

namespace {

const Adapter_Login known_login{"001122334455", "ab", "cd"};

const Adapter_Settings known_settings{
    "80",  "192.168.0.7", "192.168.0.1", "255.255.254.0", "4f737472656c00000000000000000000",
    "neu", "wort"};

QByteArray bytes_of(const QString& frame_hex) { return QByteArray::fromHex(frame_hex.toLatin1()); }

int sum_behind_first_byte(const QByteArray& frame) {
    int sum = 0;
    for (qsizetype i = 1; i < frame.size() - 1; ++i) {
        sum += static_cast<unsigned char>(frame.at(i));
    }
    return sum % 256;
}

} // namespace

void Test_Adapter_Frames::the_search_frame_is_four_fixed_bytes() {
    QCOMPARE(search_frame(), QByteArray("\xff\x01\x01\x02", 4));
}

void Test_Adapter_Frames::user_name_and_password_stand_behind_the_mac_address_of_a_login() {
    const QByteArray frame = bytes_of(compose_login_frame(known_login));
    QCOMPARE(frame.size(), 22);
    QCOMPARE(frame.left(3), QByteArray::fromHex("ff1303"));
    QCOMPARE(frame.mid(3, 6), QByteArray::fromHex("001122334455"));
    QCOMPARE(frame.mid(9, 12), QByteArray::fromHex("616200000000636400000000"));
}

void Test_Adapter_Frames::the_checksum_of_the_known_login_is_9f() {
    QCOMPARE((0x13 + 0x03 + 0xff + 0xc3 + 0xc7) % 256, 0x9f);
    QCOMPARE(compose_login_frame(known_login).right(2), QString("9f"));
}

void Test_Adapter_Frames::an_apply_differs_from_a_login_in_command_and_checksum_only() {
    QCOMPARE(compose_apply_frame(known_login),
             QString("ff1304001122334455616200000000636400000000a0"));
}

void Test_Adapter_Frames::credentials_travel_as_utf8() {
    const QString frame = compose_login_frame({"001122334455", QString::fromUtf8("ä€"), "123456"});
    QCOMPARE(frame.mid(18, 12), QString("c3a4e282ac00"));
    QCOMPARE(frame.mid(30, 12), QString("313233343536"));
}

void Test_Adapter_Frames::a_login_without_mac_address_is_shorter() {
    const QByteArray frame = bytes_of(compose_login_frame({"", "ab", "cd"}));
    QCOMPARE(frame.size(), 16);
    QCOMPARE(static_cast<unsigned char>(frame.back()), sum_behind_first_byte(frame));
}

void Test_Adapter_Frames::the_configuration_has_89_bytes_with_every_field_in_its_place_data() {
    QTest::addColumn<int>("first");
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, int first, const char* hex) {
        QTest::newRow(name) << first << QByteArray::fromHex(hex);
    };
    row("start", 0, "ff5605");
    row("MAC address", 3, "001122334455");
    row("user name in force", 9, "616200000000");
    row("password in force", 15, "636400000000");
    row("first fixed group", 21, "093803");
    row("IP allocation", 24, "80");
    row("second fixed group", 25, "2019500002");
    row("static address, last octet first", 30, "0700a8c0");
    row("gateway, last octet first", 34, "0100a8c0");
    row("subnet mask, last octet first", 38, "00feffff");
    row("name", 42, "4f737472656c00000000000000000000");
    row("new user name", 58, "6e6575000000");
    row("new password", 64, "776f72740000");
    row("third fixed group", 70, "02010000");
    row("MAC address again", 74, "001122334455");
    row("fourth fixed group", 80, "100e000001000000");
}

void Test_Adapter_Frames::the_configuration_has_89_bytes_with_every_field_in_its_place() {
    QFETCH(const int, first);
    QFETCH(const QByteArray, bytes);
    const QByteArray frame = bytes_of(compose_config_frame(known_login, known_settings));
    QCOMPARE(frame.size(), 89);
    QCOMPARE(frame.mid(first, bytes.size()).toHex(), bytes.toHex());
}

void Test_Adapter_Frames::the_configuration_ends_in_its_checksum() {
    const QString frame_hex = compose_config_frame(known_login, known_settings);
    const QByteArray frame = bytes_of(frame_hex);
    QCOMPARE(static_cast<unsigned char>(frame.back()), sum_behind_first_byte(frame));
    QCOMPARE(frame_hex, frame_hex.toLower());
}

void Test_Adapter_Frames::
    a_name_of_16_two_byte_characters_grows_the_frame_but_not_its_length_byte() {
    Adapter_Settings settings = known_settings;
    settings.name_hex = text_to_hex_field(QString(16, QChar(0xfc)), 32);
    const QByteArray frame = bytes_of(compose_config_frame(known_login, settings));
    QCOMPARE(frame.size(), 89 + 16);
    QCOMPARE(frame.at(1), '\x56');
    QCOMPARE(frame.mid(42, 32).toHex(), QByteArray("c3bc").repeated(16));
    QCOMPARE(static_cast<unsigned char>(frame.back()), sum_behind_first_byte(frame));
}

void Test_Adapter_Frames::an_address_that_cannot_be_written_is_out_of_range_data() {
    QTest::addColumn<QString>("address");
    QTest::newRow("number above 255") << "10.0.0.256";
    QTest::newRow("empty") << "";
    QTest::newRow("two numbers") << "10.1";
    QTest::newRow("failed reading") << "-1";
}

void Test_Adapter_Frames::an_address_that_cannot_be_written_is_out_of_range() {
    QFETCH(const QString, address);
    for (QString Adapter_Settings::*field :
         {&Adapter_Settings::static_ip, &Adapter_Settings::gateway,
          &Adapter_Settings::subnet_mask}) {
        Adapter_Settings settings = known_settings;
        settings.*field = address;
        QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                                 static_cast<void>(compose_config_frame(known_login, settings)));
    }
}

void Test_Adapter_Frames::an_address_of_three_numbers_shortens_the_frame() {
    Adapter_Settings settings = known_settings;
    settings.gateway = "10.1.2";
    QCOMPARE(bytes_of(compose_config_frame(known_login, settings)).size(), 88);
}

void Test_Adapter_Frames::a_checksum_leaves_out_the_first_byte_data() {
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("checksum");
    QTest::newRow("search") << "ff0101"
                            << "02";
    QTest::newRow("single digit result is filled up") << "ff0a"
                                                      << "0a";
    QTest::newRow("runs over at 256") << "ffff02"
                                      << "01";
    QTest::newRow("exactly 256") << "ff8080"
                                 << "00";
    QTest::newRow("many bytes") << "ff" + QString("ff").repeated(88) << "a8";
    QTest::newRow("last single digit") << "ff017"
                                       << "08";
    QTest::newRow("first byte alone") << "ff"
                                      << "00";
    QTest::newRow("empty") << ""
                           << "00";
}

void Test_Adapter_Frames::a_checksum_leaves_out_the_first_byte() {
    QFETCH(const QString, frame);
    QFETCH(const QString, checksum);
    QCOMPARE(frame_checksum(frame), checksum);
}

void Test_Adapter_Frames::a_reply_names_its_adapter_data() {
    QTest::addColumn<QByteArray>("name_field");
    QTest::addColumn<QString>("name");
    QTest::newRow("ordinary") << QByteArray("OSTREL").leftJustified(16, '\0') << "OSTREL";
    QTest::newRow("empty") << QByteArray(16, '\0') << "";
    QTest::newRow("no zero byte") << QByteArray("SIXTEEN LETTERS!") << "SIXTEEN LETTERS!";
    QTest::newRow("markup is text") << QByteArray("<b>x</b>").leftJustified(16, '\0') << "<b>x</b>";
    QTest::newRow("no UTF-8") << QByteArray("A\xff").leftJustified(16, '\0')
                              << QString("A") + QChar(0xfffd);
    QTest::newRow("what stands behind the zero byte does not count")
        << QByteArray("AB\0CD", 5).leftJustified(16, '\0') << "AB";
}

void Test_Adapter_Frames::a_reply_names_its_adapter() {
    QFETCH(const QByteArray, name_field);
    QFETCH(const QString, name);
    const QByteArray reply = QByteArray(19, '\x11') + name_field + QByteArray(1, '\x22');
    QCOMPARE(reply.size(), 36);
    QCOMPARE(get_name_from_reply(reply.toHex()), name);
}

void Test_Adapter_Frames::a_reply_that_ends_before_the_name_is_out_of_range() {
    QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                             static_cast<void>(get_name_from_reply(QString(37, '4'))));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, static_cast<void>(get_name_from_reply("")));
    QCOMPARE(get_name_from_reply(QString(38, '4')), QString());
    QCOMPARE(get_name_from_reply(QString(40, '4')), QString("D"));
}

void Test_Adapter_Frames::the_allocation_is_dhcp_for_40_alone_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("allocation");
    const auto with_byte_3 = [](const char* hex) {
        return QByteArray("000000") + hex + QByteArray(512, '0');
    };
    QTest::newRow("40") << with_byte_3("40") << "00";
    QTest::newRow("00 is written for DHCP but not read for it") << with_byte_3("00") << "80";
    QTest::newRow("80") << with_byte_3("80") << "80";
    QTest::newRow("41") << with_byte_3("41") << "80";
    QTest::newRow("04") << with_byte_3("04") << "80";
    QTest::newRow("empty") << QByteArray() << "80";
    QTest::newRow("ends inside the byte") << QByteArray("0000004") << "80";
    QTest::newRow("ends behind the byte") << QByteArray("00000040") << "00";
}

void Test_Adapter_Frames::the_allocation_is_dhcp_for_40_alone() {
    QFETCH(const QByteArray, answer);
    QFETCH(const QString, allocation);
    QCOMPARE(read_ip_allocation(answer.toStdString()), allocation);
}

QTEST_APPLESS_MAIN(Test_Adapter_Frames)
#include "test_adapter_frames.moc"
