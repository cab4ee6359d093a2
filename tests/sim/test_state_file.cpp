// SPDX-License-Identifier: MIT

#include "sim/state_file.h"
#include "tests/support/all_reports.h"
#include "tests/support/sample_units.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// The file in which simulated units keep their settings.
class Test_State_File : public QObject {
    Q_OBJECT

private slots:
    void every_setting_comes_back();
    void each_unit_has_its_own_settings();
    void each_audio_mode_comes_back_data();
    void each_audio_mode_comes_back();
    void a_missing_file_holds_no_unit();
    void lines_that_are_no_command_are_passed_over();
    void a_folder_that_is_not_there_cannot_be_written();
};

namespace {

/// With the ends of ranges, an empty name and one with a blank. No command sets the hotkey.
Switch_State changed_state() {
    Switch_State state = used_unit();
    state.hotkey_trigger = "Left Ctrl";
    state.parking_x = 0;
    state.buzzer = false;
    state.custom_entries[1].name = "";
    state.custom_entries[2] = {500, 1, "THE HALL"};
    state.resolutions[0] = 1;
    state.layout_positions = {16, 2, 5, 10};
    state.audio.channels = {false, true, false, true};
    return state;
}

} // namespace

void Test_State_File::every_setting_comes_back() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("state.txt");
    QVERIFY(write_state_file(path, {changed_state()}));
    const auto states = read_state_file(path);
    QCOMPARE(states.size(), std::size_t(1));
    QCOMPARE(all_reports(states[0]), all_reports(changed_state()));
}

void Test_State_File::each_unit_has_its_own_settings() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("state.txt");
    QVERIFY(write_state_file(path, {changed_state(), Switch_State()}));
    const auto states = read_state_file(path);
    QCOMPARE(states.size(), std::size_t(2));
    QCOMPARE(all_reports(states[0]), all_reports(changed_state()));
    QCOMPARE(all_reports(states[1]), all_reports(Switch_State()));
}

void Test_State_File::each_audio_mode_comes_back_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("channel_3");
    QTest::newRow("all") << static_cast<int>(Audio_Routing::Mode::all) << false;
    QTest::newRow("follow") << static_cast<int>(Audio_Routing::Mode::follow) << false;
    QTest::newRow("channel 3") << static_cast<int>(Audio_Routing::Mode::channels) << true;
    QTest::newRow("no channel") << static_cast<int>(Audio_Routing::Mode::channels) << false;
}

void Test_State_File::each_audio_mode_comes_back() {
    QFETCH(int, mode);
    QFETCH(bool, channel_3);
    Switch_State state;
    state.audio.mode = static_cast<Audio_Routing::Mode>(mode);
    state.audio.channels[2] = channel_3;
    const QTemporaryDir folder;
    const QString path = folder.filePath("state.txt");
    QVERIFY(write_state_file(path, {state}));
    QCOMPARE(audio_report(read_state_file(path).at(0)), audio_report(state));
}

void Test_State_File::a_missing_file_holds_no_unit() {
    const QTemporaryDir folder;
    QVERIFY(read_state_file(folder.filePath("nothing.txt")).empty());
}

void Test_State_File::lines_that_are_no_command_are_passed_over() {
    const QTemporaryDir folder;
    const QString path = folder.filePath("state.txt");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("//c2\nunit\nnonsense\n//c9\n//u4\n\n");
    file.close();
    const auto states = read_state_file(path);
    QCOMPARE(states.size(), std::size_t(1));
    QCOMPARE(states[0].km_channel, 1);
    QCOMPARE(states[0].usb_channel, 4);
}

void Test_State_File::a_folder_that_is_not_there_cannot_be_written() {
    const QTemporaryDir folder;
    QVERIFY(!write_state_file(folder.filePath("none/state.txt"), {Switch_State()}));
}

QTEST_GUILESS_MAIN(Test_State_File)

#include "test_state_file.moc"
