// SPDX-License-Identifier: MIT

#include "sim/switch_logic.h"
#include "sim/switch_report.h"
#include "tests/support/all_reports.h"

#include <QTest>

/// What the simulated switch does with each command.
class Test_Switch_Logic : public QObject {
    Q_OBJECT

private slots:
    void each_query_is_answered_by_its_report();
    void a_channel_command_moves_its_channel_and_gives_the_notice();
    void the_hotkey_moves_everything_and_gives_the_m_notice();
    void flag_commands_set_what_they_say_data();
    void flag_commands_set_what_they_say();
    void the_port_limit_is_stored();
    void the_parking_place_is_stored();
    void a_resolution_is_stored_and_answered_with_the_ce_notice();
    void a_custom_entry_is_stored_in_the_form_of_the_button();
    void a_custom_entry_is_stored_in_the_form_of_the_file();
    void a_custom_name_keeps_its_inner_blanks();
    void a_layout_is_stored_and_confirmed_with_its_dimensions();
    void a_layout_with_a_digit_twice_keeps_the_missing_channel_in_place();
    void a_pro_stores_audio_data();
    void a_pro_stores_audio();
    void lite_and_plus_do_not_understand_audio();
    void a_factory_reset_restores_everything();
    void a_soft_reset_keeps_everything();
    void senseless_commands_change_nothing_data();
    void senseless_commands_change_nothing();
    void other_answers_hold_nothing_the_tool_looks_for();
    void settings_last_until_they_are_changed_again();
};

void Test_Switch_Logic::each_query_is_answered_by_its_report() {
    Switch_Logic unit(Switch_Model::pro);
    QCOMPARE(unit.answer("//rl"), status_report(unit.state()));
    QCOMPARE(unit.answer("//??"), information_report(unit.state()));
    QCOMPARE(unit.answer("//BP"), layout_report(unit.state()));
    QCOMPARE(unit.answer("//QA"), audio_report(unit.state()));
}

void Test_Switch_Logic::a_channel_command_moves_its_channel_and_gives_the_notice() {
    Switch_Logic unit;
    QCOMPARE(unit.answer("//c3"), "**C 3\n");
    QCOMPARE(unit.answer("//u4"), "**U 4\n");
    QCOMPARE(unit.state().km_channel, 3);
    QCOMPARE(unit.state().usb_channel, 4);
}

void Test_Switch_Logic::the_hotkey_moves_everything_and_gives_the_m_notice() {
    Switch_Logic unit(Switch_Model::pro);
    QCOMPARE(unit.notice_both(2), "**M 2\n");
    QCOMPARE(unit.state().km_channel, 2);
    QCOMPARE(unit.state().usb_channel, 2);
    QCOMPARE(unit.answer("//QA"), "**A 2\n");
}

void Test_Switch_Logic::flag_commands_set_what_they_say_data() {
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("absolute") << QByteArray("//ks")
                              << QByteArray("KM tracking mode: Absolute Mouse Mode\n");
    QTest::newRow("relative") << QByteArray("//km")
                              << QByteArray("KM tracking mode: Relative Mouse Mode\n");
    QTest::newRow("rolling off") << QByteArray("//o0")
                                 << QByteArray("KM Cursor Rolling: Disabled\n");
    QTest::newRow("rolling on") << QByteArray("//o1") << QByteArray("KM Cursor Rolling: Enabled\n");
    QTest::newRow("buzzer off") << QByteArray("//B0") << QByteArray("Buzzer: off\n");
    QTest::newRow("buzzer on") << QByteArray("//B1") << QByteArray("Buzzer: on\n");
}

void Test_Switch_Logic::flag_commands_set_what_they_say() {
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, line);
    for (const bool before : {false, true}) {
        Switch_State state;
        state.relative_mouse = state.cursor_rolling = state.buzzer = before;
        Switch_Logic unit;
        unit.set_state(state);
        QCOMPARE(unit.answer(command), carried_out);
        QVERIFY(unit.answer("//rl").contains(line));
    }
}

void Test_Switch_Logic::the_port_limit_is_stored() {
    Switch_Logic unit;
    for (const int limit : {2, 3, 4}) {
        unit.answer("//D" + QByteArray::number(limit));
        QCOMPARE(unit.state().port_limit, limit);
    }
}

void Test_Switch_Logic::the_parking_place_is_stored() {
    Switch_Logic unit;
    QCOMPARE(unit.answer("//MP 0 100"), carried_out);
    QCOMPARE(unit.state().parking_x, 0);
    QCOMPARE(unit.state().parking_y, 100);
}

void Test_Switch_Logic::a_resolution_is_stored_and_answered_with_the_ce_notice() {
    Switch_Logic unit;
    QCOMPARE(unit.answer("//CE 2 13"), "**CE 2 13\n");
    QCOMPARE(unit.answer("//CE 4 9"), "**CE 4 9\n");
    QCOMPARE(unit.state().resolutions, (std::array<int, 4>{1, 13, 1, 9}));
}

void Test_Switch_Logic::a_custom_entry_is_stored_in_the_form_of_the_button() {
    Switch_Logic unit;
    QCOMPARE(unit.answer("//MM CC2 150 300 NEW "), carried_out);
    QVERIFY(unit.answer("//rl").contains("C2\t150 300 NEW\n"));
}

void Test_Switch_Logic::a_custom_entry_is_stored_in_the_form_of_the_file() {
    Switch_Logic unit;
    QCOMPARE(unit.answer("//MM C4 1 500 NEW"), carried_out);
    QVERIFY(unit.answer("//rl").contains("C4\t001 500 NEW\n"));
}

void Test_Switch_Logic::a_custom_name_keeps_its_inner_blanks() {
    Switch_Logic unit;
    unit.answer("//MM CC1 100 100 LEFT  DESK ");
    QCOMPARE(unit.state().custom_entries[0].name, "LEFT  DESK");
}

void Test_Switch_Logic::a_layout_is_stored_and_confirmed_with_its_dimensions() {
    Switch_Logic unit;
    QCOMPARE(unit.answer("//FF01B01FF02B02FF03B05FF04B10"),
             "Saving horizontal dimension as 2\nSaving vertical dimension as 3\n");
    QCOMPARE(unit.answer("//BP"), "//FF01B01FF02B02FF03B05FF04B10\n");
}

void Test_Switch_Logic::a_layout_with_a_digit_twice_keeps_the_missing_channel_in_place() {
    Switch_Logic unit;
    unit.answer("//FF01B05FF02B06FF03B07FF03B08");
    QCOMPARE(unit.state().layout_positions, (std::array<int, 4>{5, 6, 8, 4}));
}

void Test_Switch_Logic::a_pro_stores_audio_data() {
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("report");
    QTest::newRow("all") << QByteArray("//a 0") << QByteArray("**A 0\n");
    QTest::newRow("follow") << QByteArray("//a f") << QByteArray("**A F\n");
    QTest::newRow("one channel") << QByteArray("//a 4") << QByteArray("**A 4\n");
    QTest::newRow("three channels") << QByteArray("//a 1 3 4") << QByteArray("**A 1 3 4\n");
    QTest::newRow("none") << QByteArray("//a x") << QByteArray("**A x\n");
}

void Test_Switch_Logic::a_pro_stores_audio() {
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, report);
    Switch_Logic unit(Switch_Model::pro);
    unit.answer("//a 2");
    QCOMPARE(unit.answer(command), carried_out);
    QCOMPARE(unit.answer("//QA"), report);
}

void Test_Switch_Logic::lite_and_plus_do_not_understand_audio() {
    for (const Switch_Model model : {Switch_Model::lite, Switch_Model::plus}) {
        Switch_Logic unit(model);
        QCOMPARE(unit.answer("//QA"), not_understood);
        QCOMPARE(unit.answer("//a 2"), not_understood);
        QCOMPARE(unit.state().audio.mode, Audio_Routing::Mode::all);
    }
}

void Test_Switch_Logic::a_factory_reset_restores_everything() {
    Switch_Logic unit(Switch_Model::pro);
    const QByteArray factory = all_reports(unit.state());
    for (const char* command :
         {"//c2", "//u3", "//D2", "//km", "//o1", "//MP 1 2", "//B0", "//CE 1 9", "//MM C1 7 8 N",
          "//FF01B13FF02B14FF03B15FF04B16", "//a 1"}) {
        const QByteArray before = all_reports(unit.state());
        unit.answer(command);
        QVERIFY2(all_reports(unit.state()) != before, command);
    }
    QCOMPARE(unit.answer("//F"), carried_out);
    QCOMPARE(all_reports(unit.state()), factory);
}

void Test_Switch_Logic::a_soft_reset_keeps_everything() {
    Switch_Logic unit;
    unit.answer("//c2");
    const QByteArray before = all_reports(unit.state());
    QCOMPARE(unit.answer("//R"), carried_out);
    QCOMPARE(all_reports(unit.state()), before);
}

void Test_Switch_Logic::senseless_commands_change_nothing_data() {
    QTest::addColumn<QByteArray>("command");
    for (const char* command : {"",
                                "hello",
                                "//",
                                "//rl ",
                                "//c",
                                "//c0",
                                "//c5",
                                "//c 2",
                                "//c2x",
                                "//u9",
                                "//D1",
                                "//D5",
                                "//ksx",
                                "//MP  ",
                                "//MP 1",
                                "//MP 101 5",
                                "//MP -1 5",
                                "//CE 5 1",
                                "//CE 1 14",
                                "//CE 1",
                                "//MM C5 1 1 N",
                                "//MM CC1 0 1 N ",
                                "//MM CC1 1 501 N ",
                                "//MM C1 1",
                                "//FFF",
                                "//FF01B01FF02B02FF03B05",
                                "//FF01B01FF02B02FF03B05FF04B17",
                                "//FF01B01FF02B02FF03B05FF05B06",
                                "//FF01B01FF02B02FF03B05FF04x06",
                                "//a 5",
                                "//a ",
                                "//a 1  2"}) {
        QTest::addRow("\"%s\"", command) << QByteArray(command);
    }
}

void Test_Switch_Logic::senseless_commands_change_nothing() {
    QFETCH(QByteArray, command);
    Switch_Logic unit(Switch_Model::pro);
    const QByteArray before = all_reports(unit.state());
    QCOMPARE(unit.answer(command), not_understood);
    QCOMPARE(all_reports(unit.state()), before);
}

void Test_Switch_Logic::other_answers_hold_nothing_the_tool_looks_for() {
    for (const QByteArray answer : {not_understood, carried_out}) {
        for (const char* key :
             {"KM", "//RL", "**", "//A", "//FF", "Saving", "F", "1", "2", "3", "4"}) {
            QVERIFY2(!answer.contains(key), key);
        }
        QVERIFY(answer.endsWith('\n'));
    }
}

void Test_Switch_Logic::settings_last_until_they_are_changed_again() {
    Switch_Logic unit;
    unit.answer("//c2");
    unit.answer("//D3");
    unit.answer("//c4");
    QCOMPARE(unit.state().km_channel, 4);
    QCOMPARE(unit.state().port_limit, 3);
    QCOMPARE(unit.answer("//rl"), unit.answer("//rl"));
}

QTEST_GUILESS_MAIN(Test_Switch_Logic)

#include "test_switch_logic.moc"
