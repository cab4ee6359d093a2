// SPDX-License-Identifier: MIT

#include "sim/switch_report.h"
#include "tests/support/all_reports.h"

#include <QTest>

/// The texts with which the simulated switch reports its state.
class Test_Switch_Report : public QObject {
    Q_OBJECT

private slots:
    void the_status_report_holds_each_key_with_its_value();
    void the_information_report_holds_each_key_with_its_value();
    void the_layout_report_has_the_form_of_the_layout_command();
    void a_custom_entry_stands_in_fixed_columns();
    void resolutions_stand_one_blank_behind_their_key_within_twelve_characters();
    void the_audio_report_names_the_mode_or_the_channels_data();
    void the_audio_report_names_the_mode_or_the_channels();
    void all_answers_together_stay_below_1000_characters();
    void each_key_stands_once_in_all_reports_together_data();
    void each_key_stands_once_in_all_reports_together();
    void reports_hold_no_channel_notice();
};

namespace {

/// Every setting different from the factory's, and as long as possible.
Switch_State changed_state() {
    Switch_State state;
    state.km_channel = 2;
    state.usb_channel = 3;
    state.hotkey_trigger = "Scroll Lock";
    state.relative_mouse = true;
    state.port_limit = 3;
    state.cursor_rolling = true;
    state.parking_x = 100;
    state.parking_y = 7;
    state.buzzer = false;
    state.custom_entries = {
        {{150, 300, "DESK"}, {5, 50, "WALL"}, {500, 500, "THE HALL"}, {1, 1, "ROOM"}}};
    state.resolutions = {1, 11, 3, 4};
    state.layout_positions = {1, 2, 5, 16};
    return state;
}

} // namespace

void Test_Switch_Report::the_status_report_holds_each_key_with_its_value() {
    QCOMPARE(status_report(changed_state()), "//RL\n"
                                             "KM Port Limit: 3\n"
                                             "KM Cursor Rolling: Enabled\n"
                                             "KM tracking mode: Relative Mouse Mode\n"
                                             "C1\t150 300 DESK\n"
                                             "C2\t005 050 WALL\n"
                                             "C3\t500 500 THE HALL\n"
                                             "C4\t001 001 ROOM\n"
                                             "Channels resolution: 1 C2 3 4\n"
                                             "Buzzer: off\n");
    const QByteArray factory = status_report(Switch_State());
    QVERIFY(factory.contains("KM Cursor Rolling: Disabled\n"));
    QVERIFY(factory.contains("KM tracking mode: Absolute Mouse Mode\n"));
    QVERIFY(factory.contains("Buzzer: on\n"));
}

void Test_Switch_Report::the_information_report_holds_each_key_with_its_value() {
    QCOMPARE(information_report(changed_state()), "Current Hotkey Trigger: Scroll Lock\n"
                                                  "Current KM Control: 2\n"
                                                  "Current USB Control 3\n"
                                                  "Current parking location: X=100 Y=7\n");
}

void Test_Switch_Report::the_layout_report_has_the_form_of_the_layout_command() {
    QCOMPARE(layout_report(changed_state()), "//FF01B01FF02B02FF03B05FF04B16\n");
}

void Test_Switch_Report::a_custom_entry_stands_in_fixed_columns() {
    const QByteArray report = status_report(changed_state());
    const QByteArray value = report.mid(report.indexOf("C2\t") + 3).split('\n').first();
    QCOMPARE(value.left(3).toInt(), 5);
    QCOMPARE(value.mid(4, 3).toInt(), 50);
    QCOMPARE(value.mid(8), "WALL");
}

void Test_Switch_Report::resolutions_stand_one_blank_behind_their_key_within_twelve_characters() {
    Switch_State state;
    state.resolutions = {10, 11, 12, 13};
    const QByteArray report = status_report(state);
    const QByteArray key = "Channels resolution:";
    const QByteArray value = report.mid(report.indexOf(key) + key.size()).split('\n').first();
    QCOMPARE(value, " C1 C2 C3 C4");
    QVERIFY(value.size() - 1 <= 12);
    QCOMPARE(resolution_code(9), "9");
}

void Test_Switch_Report::the_audio_report_names_the_mode_or_the_channels_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QList<int>>("channels");
    QTest::addColumn<QByteArray>("report");
    const int channels = static_cast<int>(Audio_Routing::Mode::channels);
    QTest::newRow("all") << static_cast<int>(Audio_Routing::Mode::all) << QList<int>()
                         << QByteArray("**A 0\n");
    QTest::newRow("follow") << static_cast<int>(Audio_Routing::Mode::follow) << QList<int>()
                            << QByteArray("**A F\n");
    QTest::newRow("two channels") << channels << QList<int>{1, 3} << QByteArray("**A 1 3\n");
    QTest::newRow("no channel") << channels << QList<int>() << QByteArray("**A x\n");
}

void Test_Switch_Report::the_audio_report_names_the_mode_or_the_channels() {
    QFETCH(int, mode);
    QFETCH(QList<int>, channels);
    QFETCH(QByteArray, report);
    Switch_State state;
    state.audio.mode = static_cast<Audio_Routing::Mode>(mode);
    for (const int channel : channels) {
        state.audio.channels.at(static_cast<std::size_t>(channel - 1)) = true;
    }
    QCOMPARE(audio_report(state), report);
}

void Test_Switch_Report::all_answers_together_stay_below_1000_characters() {
    QVERIFY(all_reports(Switch_State()).size() < 1000);
    QVERIFY(all_reports(changed_state()).size() < 1000);
}

void Test_Switch_Report::each_key_stands_once_in_all_reports_together_data() {
    QTest::addColumn<QByteArray>("key");
    for (const char* key : {"//RL",
                            "KM Port Limit: ",
                            "KM Cursor Rolling: ",
                            "KM tracking mode: ",
                            "C1\t",
                            "C2\t",
                            "C3\t",
                            "C4\t",
                            "Channels resolution:",
                            "Buzzer: ",
                            "Current Hotkey Trigger: ",
                            "Current KM Control: ",
                            "Current USB Control ",
                            "Current parking location: X=",
                            "Y=",
                            "//FF",
                            "01B",
                            "02B",
                            "03B",
                            "04B",
                            "**A "}) {
        QTest::newRow(key) << QByteArray(key);
    }
}

void Test_Switch_Report::each_key_stands_once_in_all_reports_together() {
    QFETCH(QByteArray, key);
    QCOMPARE(all_reports(changed_state()).count(key), 1);
}

void Test_Switch_Report::reports_hold_no_channel_notice() {
    const QByteArray reports = all_reports(changed_state());
    for (const char* notice : {"**C", "**U", "**M", "Current USB Control: ", "//A", "Saving"}) {
        QVERIFY2(!reports.contains(notice), notice);
    }
}

QTEST_GUILESS_MAIN(Test_Switch_Report)

#include "test_switch_report.moc"
