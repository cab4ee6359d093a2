// SPDX-License-Identifier: MIT

#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QTest>

/// The mouse speed page as reports fill it, and the resolutions that the user chooses.
class Test_Mouse_Speed_Page : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_lists_start_with_the_nine_fixed_resolutions();
    void a_report_appends_the_four_names_to_all_lists();
    void a_report_shows_the_switchs_lines_unchanged();
    void names_lose_blanks_in_the_lists_and_blanks_and_tabs_in_the_field();
    void markup_in_a_name_is_shown_as_its_characters();
    void every_code_of_the_report_chooses_its_item_data();
    void every_code_of_the_report_chooses_its_item();
    void the_resolution_line_is_read_by_its_fields_data();
    void the_resolution_line_is_read_by_its_fields();
    void a_chosen_resolution_is_sent_as_its_index_plus_one();
    void each_channel_sends_its_own_digit();
    void with_none_chosen_the_command_value_is_0();
    void choosing_an_entry_shows_its_columns();
    void an_entry_without_a_report_clears_the_fields();
    void a_line_of_just_its_columns_shows_an_empty_name();
    void a_report_shows_the_entry_that_is_being_edited();
    void a_refresh_replaces_the_names_and_sends_no_resolution();
    void a_refresh_takes_the_names_out_until_the_report_comes();
    void a_short_custom_line_stops_the_report();
    void lists_with_some_names_are_left_alone_by_a_refresh();

private:
    QComboBox& entry() const { return lite->combo("comboBox_number_of_setting"); }
    QStringList fields() const;
    QStringList items(int channel) const;
    QList<int> indices() const;
    void set_entries(const std::array<Custom_Entry, 4>& entries);
    /// Opens the window on a switch whose report has this line instead of its own line with that
    /// key.
    [[nodiscard]] bool open_with_line(const QByteArray& key, const QByteArray& line);

    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Lite_Fixture> lite;
};

namespace {

const QStringList fixed_resolutions = {"1080p",     "4K",        "2K",
                                       "3840x1080", "5760x1080", "7680x1080",
                                       "1920x2160", "1920x3240", "1920x4320"};

const std::array<Custom_Entry, 4> four_entries = {
    {{150, 300, "DESK"}, {1, 500, "WALL"}, {20, 30, "HALL"}, {500, 1, "ROOM"}}};

const QByteArrayList questions = {"//rl", "//??", "//BP"};

} // namespace

void Test_Mouse_Speed_Page::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    set_entries(four_entries);
}

void Test_Mouse_Speed_Page::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

QStringList Test_Mouse_Speed_Page::fields() const {
    return {lite->line_edit("lineEdit_Mouse_Movement_X").text(),
            lite->line_edit("lineEdit_Mouse_Movement_Y").text(),
            lite->line_edit("lineEdit_Mouse_Movement_Name").text()};
}

QStringList Test_Mouse_Speed_Page::items(int channel) const {
    const QComboBox& list = lite->resolution(channel);
    QStringList texts;
    for (int i = 0; i < list.count(); ++i) {
        texts.append(list.itemText(i));
    }
    return texts;
}

QList<int> Test_Mouse_Speed_Page::indices() const {
    return {lite->resolution(1).currentIndex(), lite->resolution(2).currentIndex(),
            lite->resolution(3).currentIndex(), lite->resolution(4).currentIndex()};
}

void Test_Mouse_Speed_Page::set_entries(const std::array<Custom_Entry, 4>& entries) {
    Switch_State state = lite->device.unit().state();
    state.custom_entries = entries;
    lite->device.unit().set_state(state);
}

bool Test_Mouse_Speed_Page::open_with_line(const QByteArray& key, const QByteArray& line) {
    Fault_Plan plan;
    plan.missing_key = key;
    lite->device.set_faults(plan);
    return lite->open_filled(line);
}

void Test_Mouse_Speed_Page::the_lists_start_with_the_nine_fixed_resolutions() {
    lite->open();
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(items(channel), fixed_resolutions);
        QCOMPARE(lite->resolution(channel).currentIndex(), 0);
    }
    QCOMPARE(entry().count(), 4);
    QCOMPARE(entry().itemText(0), "C1");
    QCOMPARE(entry().itemText(3), "C4");
    QCOMPARE(lite->label("label_29").text(), "Mouse Speed Range is between 1-500");
}

void Test_Mouse_Speed_Page::a_report_appends_the_four_names_to_all_lists() {
    QVERIFY(lite->open_filled());
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(items(channel), fixed_resolutions + QStringList({"DESK", "WALL", "HALL", "ROOM"}));
    }
}

void Test_Mouse_Speed_Page::a_report_shows_the_switchs_lines_unchanged() {
    QVERIFY(lite->open_filled());
    QCOMPARE(lite->label("label_Custom_1").text(), "150 300 DESK");
    QCOMPARE(lite->label("label_Custom_2").text(), "001 500 WALL");
    QCOMPARE(lite->label("label_Custom_3").text(), "020 030 HALL");
    QCOMPARE(lite->label("label_Custom_4").text(), "500 001 ROOM");
    QCOMPARE(fields(), (QStringList{"150", "300", "DESK"}));
}

void Test_Mouse_Speed_Page::names_lose_blanks_in_the_lists_and_blanks_and_tabs_in_the_field() {
    set_entries({{{150, 300, " MY \tDESK  2 "}, {1, 500, "WALL"}, {1, 1, ""}, {1, 1, "ROOM"}}});
    QVERIFY(lite->open_filled());
    QCOMPARE(items(1).mid(9), (QStringList{"MY\tDESK2", "WALL", "", "ROOM"}));
    QCOMPARE(items(4).mid(9), items(1).mid(9));
    QCOMPARE(lite->label("label_Custom_1").text(), "150 300  MY \tDESK  2 ");
    QCOMPARE(fields(), (QStringList{"150", "300", "MYDESK2"}));
}

void Test_Mouse_Speed_Page::markup_in_a_name_is_shown_as_its_characters() {
    set_entries({{{150, 300, "<b>DESK</b>"}, {1, 500, "W&amp;L"}, {1, 1, "H"}, {1, 1, "R"}}});
    QVERIFY(lite->open_filled());
    QCOMPARE(lite->label("label_Custom_1").text(), "150 300 <b>DESK</b>");
    for (int number = 1; number <= 4; ++number) {
        QCOMPARE(lite->label("label_Custom_" + QString::number(number)).textFormat(),
                 Qt::PlainText);
    }
    QCOMPARE(lite->resolution(1).itemText(10), "W&amp;L");
}

void Test_Mouse_Speed_Page::every_code_of_the_report_chooses_its_item_data() {
    QTest::addColumn<int>("first");
    for (const int first : {1, 5, 9, 10}) {
        QTest::addRow("%d to %d", first, first + 3) << first;
    }
}

void Test_Mouse_Speed_Page::every_code_of_the_report_chooses_its_item() {
    QFETCH(const int, first);
    Switch_State state = lite->device.unit().state();
    state.resolutions = {first, first + 1, first + 2, first + 3};
    lite->device.unit().set_state(state);
    QVERIFY(lite->open_filled());
    QCOMPARE(indices(), (QList<int>{first - 1, first, first + 1, first + 2}));
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Mouse_Speed_Page::the_resolution_line_is_read_by_its_fields_data() {
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QList<int>>("expected");
    const auto row = [](const char* value, const QList<int>& expected) {
        QTest::addRow("\"%s\"", value) << QByteArray(value) << expected;
    };
    row(" 1 C2 3 4", {0, 10, 2, 3});
    row(" C1 C2 C3 C4", {9, 10, 11, 12});
    row("x9,8,7,6", {8, 7, 6, 5});
    row(" 0 1 C9 2", {-1, 0, -1, 1});
    row(" 2 3", {1, 2, 0, 0});
    row(" 2 3 4 5 6 7", {1, 2, 3, 4});
    // The first character after the key is skipped, whatever it is.
    row("2 3 4 5", {2, 3, 4, 0});
    // Twelve characters count, past the line's end.
    row(" 5\n6 7\nxx 8 9", {4, 5, 6, 7});
}

void Test_Mouse_Speed_Page::the_resolution_line_is_read_by_its_fields() {
    QFETCH(const QByteArray, value);
    QFETCH(const QList<int>, expected);
    // The letters of the next line are where the last of the twelve characters may be.
    QVERIFY(open_with_line("Channels resolution", "Channels resolution:" + value + "\n//////////"));
    QVERIFY(wait_until([&] { return indices() == expected; }, 1000));
}

void Test_Mouse_Speed_Page::a_chosen_resolution_is_sent_as_its_index_plus_one() {
    QVERIFY(lite->open_filled());
    QByteArrayList expected;
    for (int index = 12; index >= 0; --index) {
        lite->resolution(3).setCurrentIndex(index);
        expected.append("//CE 3 " + QByteArray::number(index + 1));
    }
    QCOMPARE(lite->commands(), expected);
}

void Test_Mouse_Speed_Page::each_channel_sends_its_own_digit() {
    QVERIFY(lite->open_filled());
    for (int channel = 1; channel <= 4; ++channel) {
        lite->resolution(channel).setCurrentText("ROOM");
    }
    QCOMPARE(lite->commands(),
             (QByteArrayList{"//CE 1 13", "//CE 2 13", "//CE 3 13", "//CE 4 13"}));
    QCOMPARE(lite->device.unit().state().resolutions, (std::array<int, 4>{13, 13, 13, 13}));
    lite->resolution(2).setCurrentText("WALL");
    QCOMPARE(lite->commands(), QByteArrayList{"//CE 2 11"});
}

void Test_Mouse_Speed_Page::with_none_chosen_the_command_value_is_0() {
    QVERIFY(lite->open_filled());
    lite->resolution(4).setCurrentIndex(-1);
    QCOMPARE(lite->commands(), QByteArrayList{"//CE 4 0"});
}

void Test_Mouse_Speed_Page::choosing_an_entry_shows_its_columns() {
    QVERIFY(lite->open_filled());
    entry().setCurrentIndex(1);
    QCOMPARE(fields(), (QStringList{"001", "500", "WALL"}));
    entry().setCurrentIndex(3);
    QCOMPARE(fields(), (QStringList{"500", "001", "ROOM"}));
    entry().setCurrentIndex(2);
    QCOMPARE(fields(), (QStringList{"020", "030", "HALL"}));
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Mouse_Speed_Page::an_entry_without_a_report_clears_the_fields() {
    lite->open();
    QCOMPARE(lite->label("label_Custom_3").text(), "");
    lite->line_edit("lineEdit_Mouse_Movement_X").setText("1");
    lite->line_edit("lineEdit_Mouse_Movement_Y").setText("2");
    lite->line_edit("lineEdit_Mouse_Movement_Name").setText("left over");
    entry().setCurrentIndex(2);
    QCOMPARE(fields(), (QStringList{"", "", ""}));
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Mouse_Speed_Page::a_line_of_just_its_columns_shows_an_empty_name() {
    QVERIFY(open_with_line("C2\t", "C2\t111 222 \n"));
    entry().setCurrentIndex(1);
    QCOMPARE(fields(), (QStringList{"111", "222", ""}));
    QCOMPARE(lite->resolution(1).itemText(10), "");
}

void Test_Mouse_Speed_Page::a_report_shows_the_entry_that_is_being_edited() {
    lite->open();
    entry().setCurrentIndex(3);
    QVERIFY(lite->wait_filled());
    QCOMPARE(fields(), (QStringList{"500", "001", "ROOM"}));
    QCOMPARE(entry().currentIndex(), 3);
}

void Test_Mouse_Speed_Page::a_refresh_replaces_the_names_and_sends_no_resolution() {
    Switch_State state = lite->device.unit().state();
    state.resolutions = {10, 11, 12, 13};
    lite->device.unit().set_state(state);
    QVERIFY(lite->open_filled());
    set_entries({{{1, 1, "ONE"}, {2, 2, "TWO"}, {3, 3, "THREE"}, {4, 4, "FOUR"}}});
    for (int round = 0; round < 2; ++round) {
        QVERIFY(lite->run_slot("refresh_UI"));
        QVERIFY(lite->wait_filled());
        QCOMPARE(lite->commands(), questions);
        for (int channel = 1; channel <= 4; ++channel) {
            QCOMPARE(items(channel),
                     fixed_resolutions + QStringList({"ONE", "TWO", "THREE", "FOUR"}));
        }
        QCOMPARE(indices(), (QList<int>{9, 10, 11, 12}));
    }
}

void Test_Mouse_Speed_Page::a_refresh_takes_the_names_out_until_the_report_comes() {
    QVERIFY(lite->open_filled());
    QVERIFY(lite->run_slot("refresh_UI"));
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(items(channel), fixed_resolutions);
    }
    // A user's choice in between is sent as usual.
    lite->resolution(1).setCurrentIndex(4);
    QCOMPARE(lite->commands(), questions + QByteArrayList{"//CE 1 5"});
}

void Test_Mouse_Speed_Page::a_short_custom_line_stops_the_report() {
    Switch_State state = lite->device.unit().state();
    state.resolutions = {2, 3, 4, 5};
    state.buzzer = false;
    lite->device.unit().set_state(state);
    Fault_Plan plan;
    plan.missing_key = "C3\t";
    lite->device.set_faults(plan);
    lite->device.send("C3\t1234567\n");
    robot->expect({.text = "Setting data from TQL error", .icon = QMessageBox::Warning});
    lite->open();
    QVERIFY(wait_until([&] { return robot->done(); }));
    QCOMPARE(items(1), fixed_resolutions + QStringList({"DESK", "WALL"}));
    QCOMPARE(lite->label("label_Custom_1").text(), "");
    QCOMPARE(indices(), (QList<int>{0, 0, 0, 0}));
}

void Test_Mouse_Speed_Page::lists_with_some_names_are_left_alone_by_a_refresh() {
    Fault_Plan plan;
    plan.missing_key = "C4\t";
    lite->device.set_faults(plan);
    robot->expect({.text = "Setting data from TQL error"});
    lite->open();
    QVERIFY(wait_until([&] { return robot->done(); }));
    QCOMPARE(lite->resolution(1).count(), 12);
    lite->device.set_faults({});
    QVERIFY(lite->run_slot("refresh_UI"));
    QCOMPARE(lite->resolution(1).count(), 12);
    QVERIFY(wait_until([&] { return lite->resolution(4).count() == 16; }));
    QCOMPARE(items(1), fixed_resolutions +
                           QStringList({"DESK", "WALL", "HALL", "DESK", "WALL", "HALL", "ROOM"}));
}

QTEST_MAIN(Test_Mouse_Speed_Page)

#include "test_mouse_speed_page.moc"
