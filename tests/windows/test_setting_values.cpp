// SPDX-License-Identifier: MIT

#include "link/custom_setting.h"
#include "pages/setting_values.h"

#include <QTest>

#include <stdexcept>

/// The values of a settings file's lines.
class Test_Setting_Values : public QObject {
    Q_OBJECT

private slots:
    void a_channel_is_what_follows_its_command();
    void a_port_limit_is_a_number();
    void parking_is_two_texts_of_which_the_second_keeps_its_blank();
    void a_resolution_is_that_of_its_own_channel();
    void a_name_begins_behind_two_figures_of_three_digits();
};

void Test_Setting_Values::a_channel_is_what_follows_its_command() {
    using Channel = std::optional<std::string>;
    QCOMPARE(filed_channel("//c", "//c3"), Channel("3"));
    QCOMPARE(filed_channel("//u", "//u14"), Channel("14"));
    QCOMPARE(filed_channel("//c", "//c0"), Channel());
    QCOMPARE(filed_channel("//c", "//u3"), Channel());
    QCOMPARE(filed_channel("//c", ""), Channel());
}

void Test_Setting_Values::a_port_limit_is_a_number() {
    QCOMPARE(filed_port_limit("//D2"), std::int64_t(2));
    QCOMPARE(filed_port_limit("//D4 and more"), std::int64_t(4));
    QCOMPARE(filed_port_limit(""), std::int64_t(0));
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, (void)filed_port_limit("//Dx"));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, (void)filed_port_limit("//D99999999999"));
}

void Test_Setting_Values::parking_is_two_texts_of_which_the_second_keeps_its_blank() {
    QCOMPARE(filed_parking("//MP 30 70").x, "30");
    QCOMPARE(filed_parking("//MP 30 70").y, " 70");
    QCOMPARE(filed_parking("").x, "0");
    QCOMPARE(filed_parking("").y, "0");
    QCOMPARE(filed_parking("//MP 30").y, "0");
}

void Test_Setting_Values::a_resolution_is_that_of_its_own_channel() {
    QCOMPARE(filed_resolution(2, "//CE 2 13"), "13");
    QCOMPARE(filed_resolution(2, "//CE 1 13"), "0");
    QCOMPARE(filed_resolution(4, ""), "0");
}

void Test_Setting_Values::a_name_begins_behind_two_figures_of_three_digits() {
    QCOMPARE(custom_setting_name("//MM C1 150 300 DESK", name_offset_in_file), "DESK");
    QCOMPARE(custom_setting_name("//MM C1 15 30 DESK", name_offset_in_file), "ESK");
}

QTEST_APPLESS_MAIN(Test_Setting_Values)

#include "test_setting_values.moc"
