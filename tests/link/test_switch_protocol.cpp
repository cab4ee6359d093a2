// SPDX-License-Identifier: MIT

#include "link/switch_protocol.h"

#include <QTest>

/// Every text that is sent to the switch, and every text that is searched for in its answers.
class Test_Switch_Protocol : public QObject {
    Q_OBJECT

private slots:
    void fixed_commands_data();
    void fixed_commands();
    void numbered_commands_end_in_their_number();
    void resolution_commands_name_channel_and_resolution();
    void mouse_parking_takes_its_texts_as_they_stand();
    void the_submitted_custom_entry_has_a_second_c_and_a_final_blank();
    void the_filed_custom_entry_has_neither();
    void double_blanks_are_squeezed_only_in_the_file();
    void long_custom_entries_are_cut_at_their_buffers_end();
    void a_cut_never_leaves_a_piece_of_a_character();
    void bytes_that_are_no_characters_are_cut_where_they_are();
    void audio_channels_stand_behind_one_blank_each();
    void connected_markers();
    void keys_of_answers_data();
    void keys_of_answers();
};

namespace {

QString as_text(std::string_view text) { return switch_protocol::text(text); }

} // namespace

void Test_Switch_Protocol::fixed_commands_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("text");
    QTest::newRow("status") << as_text(switch_protocol::status_query) << "//rl";
    QTest::newRow("information") << as_text(switch_protocol::information_query) << "//??";
    QTest::newRow("layout") << as_text(switch_protocol::layout_query) << "//BP";
    QTest::newRow("audio") << as_text(switch_protocol::audio_query) << "//QA";
    QTest::newRow("absolute") << as_text(switch_protocol::mouse_absolute) << "//ks";
    QTest::newRow("relative") << as_text(switch_protocol::mouse_relative) << "//km";
    QTest::newRow("roll off") << as_text(switch_protocol::cursor_roll_off) << "//o0";
    QTest::newRow("roll on") << as_text(switch_protocol::cursor_roll_on) << "//o1";
    QTest::newRow("buzzer on") << as_text(switch_protocol::buzzer_on) << "//B1";
    QTest::newRow("buzzer off") << as_text(switch_protocol::buzzer_off) << "//B0";
    QTest::newRow("soft reset") << as_text(switch_protocol::soft_reset) << "//R";
    QTest::newRow("factory reset") << as_text(switch_protocol::factory_reset) << "//F";
    QTest::newRow("audio none") << as_text(switch_protocol::audio_none) << "//a x";
    QTest::newRow("audio all") << as_text(switch_protocol::audio_all) << "//a 0";
    QTest::newRow("audio follow") << as_text(switch_protocol::audio_follow) << "//a f";
}

void Test_Switch_Protocol::fixed_commands() {
    QFETCH(QString, command);
    QFETCH(QString, text);
    QCOMPARE(command, text);
}

void Test_Switch_Protocol::numbered_commands_end_in_their_number() {
    QCOMPARE(switch_protocol::numbered(switch_protocol::km_control, 1), "//c1");
    QCOMPARE(switch_protocol::numbered(switch_protocol::km_control, 4), "//c4");
    QCOMPARE(switch_protocol::numbered(switch_protocol::usb_control, 3), "//u3");
    QCOMPARE(switch_protocol::numbered(switch_protocol::port_limit, 2), "//D2");
}

void Test_Switch_Protocol::resolution_commands_name_channel_and_resolution() {
    QCOMPARE(switch_protocol::resolution_command("2", 13), "//CE 2 13");
    QCOMPARE(switch_protocol::resolution_command("4", 1), "//CE 4 1");
    QCOMPARE(switch_protocol::resolution_command("1", 0), "//CE 1 0");
}

void Test_Switch_Protocol::mouse_parking_takes_its_texts_as_they_stand() {
    QCOMPARE(switch_protocol::mouse_parking_command("50", "60"), "//MP 50 60");
    QCOMPARE(switch_protocol::mouse_parking_command("", ""), "//MP  ");
    QCOMPARE(switch_protocol::mouse_parking_command("far", "-1 "), "//MP far -1 ");
    QCOMPARE(switch_protocol::mouse_parking_command("%1", "%2"), "//MP %1 %2");
}

void Test_Switch_Protocol::the_submitted_custom_entry_has_a_second_c_and_a_final_blank() {
    QCOMPARE(switch_protocol::submitted_custom_setting("C1", "150", "300", "DESK"),
             "//MM CC1 150 300 DESK ");
    QCOMPARE(switch_protocol::submitted_custom_setting("C4", "1", "500", "My Desk"),
             "//MM CC4 1 500 My Desk ");
    QCOMPARE(switch_protocol::submitted_custom_setting("C2", "1", "2", "%s%n"),
             "//MM CC2 1 2 %s%n ");
}

void Test_Switch_Protocol::the_filed_custom_entry_has_neither() {
    QCOMPARE(switch_protocol::filed_custom_setting(1, "150", "300", "DESK"),
             "//MM C1 150 300 DESK");
    QCOMPARE(switch_protocol::filed_custom_setting(4, "001", "500", "%s"), "//MM C4 001 500 %s");
}

void Test_Switch_Protocol::double_blanks_are_squeezed_only_in_the_file() {
    QCOMPARE(switch_protocol::filed_custom_setting(2, " 15", "  3", "A   B"), "//MM C2 15 3 A B");
    QCOMPARE(switch_protocol::submitted_custom_setting("C2", " 15", "  3", "A   B"),
             "//MM CC2  15   3 A   B ");
}

void Test_Switch_Protocol::long_custom_entries_are_cut_at_their_buffers_end() {
    // Buffers of 100 and of 50 bytes, of which one is reserved for the terminator.
    const std::string name(200, 'N');
    const std::string submitted = switch_protocol::submitted_custom_setting("C1", "1", "2", name);
    QCOMPARE(submitted, ("//MM CC1 1 2 " + name).substr(0, 99));
    const std::string filed = switch_protocol::filed_custom_setting(1, "1", "2", name);
    QCOMPARE(filed, ("//MM C1 1 2 " + name).substr(0, 49));
    // First cut, then simplified.
    const std::string squeezed = switch_protocol::filed_custom_setting(1, "  1", "2", name);
    QCOMPARE(squeezed, ("//MM C1 1 2 " + name).substr(0, 47));
}

void Test_Switch_Protocol::a_cut_never_leaves_a_piece_of_a_character() {
    const auto filed = [](const std::string& name) {
        return switch_protocol::filed_custom_setting(1, "100", "200", name);
    };
    const auto submitted = [](const std::string& name) {
        return switch_protocol::submitted_custom_setting("C1", "100", "200", name);
    };
    // 33 bytes of a name fit into a file's line, and 82 into the unit's.
    const std::string filed_head = "//MM C1 100 200 ";
    const std::string submitted_head = "//MM CC1 100 200 ";
    for (const std::string character : {"\u00fc", "\u6771", "\U0001f5a5"}) {
        for (std::size_t fitting = 0; fitting < character.size(); ++fitting) {
            const std::string filed_name(33 - fitting, 'N');
            QCOMPARE(filed(filed_name + character + "X"), filed_head + filed_name);
            const std::string submitted_name(82 - fitting, 'N');
            QCOMPARE(submitted(submitted_name + character + "X"), submitted_head + submitted_name);
        }
        const std::string filed_name = std::string(33 - character.size(), 'N') + character;
        QCOMPARE(filed(filed_name), filed_head + filed_name);
        QCOMPARE(filed(filed_name + character), filed_head + filed_name);
        const std::string submitted_name = std::string(82 - character.size(), 'N') + character;
        QCOMPARE(submitted(submitted_name + character), submitted_head + submitted_name);
    }
}

void Test_Switch_Protocol::bytes_that_are_no_characters_are_cut_where_they_are() {
    const std::string bytes(60, '\x80');
    QCOMPARE(switch_protocol::filed_custom_setting(1, "100", "200", bytes),
             "//MM C1 100 200 " + std::string(33, '\x80'));
}

void Test_Switch_Protocol::audio_channels_stand_behind_one_blank_each() {
    QCOMPARE(switch_protocol::audio_channels_command("13"), "//a 1 3");
    QCOMPARE(switch_protocol::audio_channels_command("4"), "//a 4");
    QCOMPARE(switch_protocol::audio_channels_command(""), "//a x");
}

void Test_Switch_Protocol::connected_markers() {
    const QStringList expected{"//RL", "KM"};
    QStringList markers;
    for (const std::string_view marker : switch_protocol::connected_markers) {
        markers.append(as_text(marker));
    }
    QCOMPARE(markers, expected);
}

void Test_Switch_Protocol::keys_of_answers_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::newRow("hotkey") << as_text(switch_protocol::hotkey_trigger_key)
                            << "Current Hotkey Trigger: ";
    QTest::newRow("KM") << as_text(switch_protocol::km_control_key) << "Current KM Control: ";
    QTest::newRow("USB") << as_text(switch_protocol::usb_control_key) << "Current USB Control ";
    QTest::newRow("X") << as_text(switch_protocol::parking_x_key) << "Current parking location: X=";
    QTest::newRow("Y") << as_text(switch_protocol::parking_y_key) << "Y=";
    QTest::newRow("limit") << as_text(switch_protocol::port_limit_key) << "KM Port Limit: ";
    QTest::newRow("roll") << as_text(switch_protocol::cursor_roll_key) << "KM Cursor Rolling: ";
    QTest::newRow("mode") << as_text(switch_protocol::mouse_mode_key) << "KM tracking mode: ";
    QTest::newRow("C1") << as_text(switch_protocol::custom_keys[0]) << "C1\t";
    QTest::newRow("C2") << as_text(switch_protocol::custom_keys[1]) << "C2\t";
    QTest::newRow("C3") << as_text(switch_protocol::custom_keys[2]) << "C3\t";
    QTest::newRow("C4") << as_text(switch_protocol::custom_keys[3]) << "C4\t";
    QTest::newRow("resolutions") << as_text(switch_protocol::resolutions_key)
                                 << "Channels resolution:";
    QTest::newRow("buzzer") << as_text(switch_protocol::buzzer_key) << "Buzzer: ";
    QTest::newRow("layout line") << as_text(switch_protocol::layout_line) << "//FF";
    QTest::newRow("layout saved") << as_text(switch_protocol::layout_saved)
                                  << "Saving horizontal dimension as";
    QTest::newRow("both notice") << as_text(switch_protocol::both_notice) << "**M";
    QTest::newRow("KM notice") << as_text(switch_protocol::km_notice) << "**C";
    QTest::newRow("USB notice") << as_text(switch_protocol::usb_notice) << "**U";
    QTest::newRow("USB notice in words")
        << as_text(switch_protocol::usb_control_notice) << "Current USB Control: ";
    QTest::newRow("resolution answer") << as_text(switch_protocol::resolution_answer) << "**CE";
    QTest::newRow("audio 1") << as_text(switch_protocol::audio_answers[0]) << "**A ";
    QTest::newRow("audio 2") << as_text(switch_protocol::audio_answers[1]) << "**A";
    QTest::newRow("audio 3") << as_text(switch_protocol::audio_answers[2]) << "//A";
}

void Test_Switch_Protocol::keys_of_answers() {
    QFETCH(QString, key);
    QFETCH(QString, text);
    QCOMPARE(key, text);
}

QTEST_GUILESS_MAIN(Test_Switch_Protocol)

#include "test_switch_protocol.moc"
