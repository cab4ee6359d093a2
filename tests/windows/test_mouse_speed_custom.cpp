// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/lite_fixture.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QTest>

/// Storing a custom entry in the switch: the checks before it, its bytes, and the refresh after it.
class Test_Mouse_Speed_Custom : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void an_entry_goes_out_with_two_c_and_a_blank_at_its_end();
    void each_entry_is_sent_under_its_own_name();
    void fields_travel_as_typed_data();
    void fields_travel_as_typed();
    void a_long_entry_is_cut_at_99_bytes();
    void the_first_failing_check_alone_is_told_data();
    void the_first_failing_check_alone_is_told();
    void speeds_from_1_to_500_pass_data();
    void speeds_from_1_to_500_pass();
    void a_taken_name_is_refused_data();
    void a_taken_name_is_refused();
    void a_name_that_no_other_item_has_in_capitals_passes_data();
    void a_name_that_no_other_item_has_in_capitals_passes();
    void the_lists_show_the_new_name_at_once_as_typed();
    void the_switch_is_asked_for_everything_after_800_ms();
    void a_refused_entry_starts_no_refresh();

private:
    void choose_entry(int number);
    void type(const QString& name, const QString& x, const QString& y);
    void submit();

    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Lite_Fixture> lite;
};

namespace {

constexpr int refresh_wait = 800;

} // namespace

void Test_Mouse_Speed_Custom::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    Switch_State state;
    state.custom_entries = {{{150, 300, "DESK"}, {1, 500, "WALL"}, {2, 3, "hall"}, {4, 5, "ROOM"}}};
    lite->device.unit().set_state(state);
    QVERIFY(lite->open_filled());
    lite->button("pushButton_Mouse_Speed_Settings").click();
}

void Test_Mouse_Speed_Custom::cleanup() {
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Mouse_Speed_Custom::choose_entry(int number) {
    lite->combo("comboBox_number_of_setting").setCurrentIndex(number - 1);
}

void Test_Mouse_Speed_Custom::type(const QString& name, const QString& x, const QString& y) {
    const std::pair<QString, QString> texts[] = {{"Name", name}, {"X", x}, {"Y", y}};
    for (const auto& [field, text] : texts) {
        QLineEdit& edit = lite->line_edit("lineEdit_Mouse_Movement_" + field);
        edit.clear();
        QTest::keyClicks(&edit, text);
    }
}

void Test_Mouse_Speed_Custom::submit() {
    QTest::mouseClick(&lite->button("pushButton_Submit_Custom_Mouse_Movement_Settings"),
                      Qt::LeftButton);
}

void Test_Mouse_Speed_Custom::an_entry_goes_out_with_two_c_and_a_blank_at_its_end() {
    choose_entry(2);
    type("BANK", "150", "300");
    submit();
    const QByteArray wanted = "//MM CC2 150 300 BANK \r";
    QVERIFY(wait_until([&] { return lite->device.received_bytes().size() >= wanted.size(); }));
    QCOMPARE(lite->device.received_bytes(), wanted);
}

void Test_Mouse_Speed_Custom::each_entry_is_sent_under_its_own_name() {
    for (int number = 1; number <= 4; ++number) {
        const QByteArray digit = QByteArray::number(number);
        choose_entry(number);
        type("NEW" + digit, "10" + digit, "20" + digit);
        submit();
        QCOMPARE(lite->commands(), QByteArrayList{"//MM CC" + digit + " 10" + digit + " 20" +
                                                  digit + " NEW" + digit + " "});
    }
    QCOMPARE(lite->device.unit().state().custom_entries[3].name, QByteArray("NEW4"));
}

void Test_Mouse_Speed_Custom::fields_travel_as_typed_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::addRow("short numbers, lower case") << "bank"
                                               << "5"
                                               << "40";
    QTest::addRow("leading zeros") << "BANK"
                                   << "0005"
                                   << "040";
    QTest::addRow("blanks") << " My  bank "
                            << " 5"
                            << "6 ";
    QTest::addRow("plus sign") << "B+"
                               << "+5"
                               << "6";
    QTest::addRow("a name of blanks") << "  "
                                      << "1"
                                      << "2";
    QTest::addRow("format signs") << "%s%n%d"
                                  << "1"
                                  << "2";
}

void Test_Mouse_Speed_Custom::fields_travel_as_typed() {
    QFETCH(const QString, name);
    QFETCH(const QString, x);
    QFETCH(const QString, y);
    choose_entry(4);
    type(name, x, y);
    submit();
    QCOMPARE(lite->commands(),
             QByteArrayList{QString("//MM CC4 " + x + ' ' + y + ' ' + name + ' ').toUtf8()});
    QCOMPARE(lite->resolution(2).itemText(12), name);
}

void Test_Mouse_Speed_Custom::a_long_entry_is_cut_at_99_bytes() {
    choose_entry(1);
    lite->line_edit("lineEdit_Mouse_Movement_Name").setText(QString(200, 'N'));
    submit();
    const QByteArray whole = "//MM CC1 150 300 " + QByteArray(200, 'N');
    QCOMPARE(lite->commands(), QByteArrayList{whole.left(99)});

    lite->line_edit("lineEdit_Mouse_Movement_Name").setText(QString::fromUtf8("Büro 東京"));
    submit();
    QCOMPARE(lite->commands(), QByteArrayList{"//MM CC1 150 300 Büro 東京 "});
}

void Test_Mouse_Speed_Custom::the_first_failing_check_alone_is_told_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::addColumn<QString>("warning");
    const QString no_name = "Enter name of setting";
    const QString no_x = "Enter X for setting";
    const QString no_y = "Enter Y for setting";
    const QString taken = "This custom name already exists";
    const QString range = "Mouse Speed Range is between 1-500";
    const auto row = [](const char* name, const QStringList& fields, const QString& warning) {
        QTest::addRow("%s", name) << fields[0] << fields[1] << fields[2] << warning;
    };
    row("all empty", {"", "", ""}, no_name);
    row("no name, wrong X", {"", "0", "1"}, no_name);
    row("no X and no Y", {"BANK", "", ""}, no_x);
    row("no X, taken name", {"DESK", "", "1"}, no_x);
    row("no Y", {"BANK", "1", ""}, no_y);
    row("no Y, wrong X", {"BANK", "0", ""}, no_y);
    row("taken name, wrong speeds", {"DESK", "0", "0"}, taken);
    row("X 0", {"BANK", "0", "1"}, range);
    row("X 501", {"BANK", "501", "1"}, range);
    row("X below 0", {"BANK", "-1", "1"}, range);
    row("X no number", {"BANK", "abc", "1"}, range);
    row("X a blank", {"BANK", " ", "1"}, range);
    row("X a fraction", {"BANK", "1.5", "1"}, range);
    row("X half a number", {"BANK", "5x", "1"}, range);
    row("X beyond 32 bits", {"BANK", "4294967297", "1"}, range);
    row("Y 0", {"BANK", "1", "0"}, range);
    row("Y 501", {"BANK", "500", "501"}, range);
    row("Y no number", {"BANK", "1", "y"}, range);
    row("both wrong, told once", {"BANK", "0", "0"}, range);
}

void Test_Mouse_Speed_Custom::the_first_failing_check_alone_is_told() {
    QFETCH(const QString, name);
    QFETCH(const QString, x);
    QFETCH(const QString, y);
    QFETCH(const QString, warning);
    choose_entry(2);
    type(name, x, y);
    expect_warning(*robot, warning);
    submit();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), QByteArrayList());
    QCOMPARE(lite->resolution(1).itemText(10), "WALL");
}

void Test_Mouse_Speed_Custom::speeds_from_1_to_500_pass_data() {
    QTest::addColumn<QString>("x");
    QTest::addColumn<QString>("y");
    QTest::addRow("lowest") << "1"
                            << "1";
    QTest::addRow("highest") << "500"
                             << "500";
    QTest::addRow("between") << "2"
                             << "499";
}

void Test_Mouse_Speed_Custom::speeds_from_1_to_500_pass() {
    QFETCH(const QString, x);
    QFETCH(const QString, y);
    type("BANK", x, y);
    submit();
    QCOMPARE(lite->commands(),
             QByteArrayList{QString("//MM CC1 " + x + ' ' + y + " BANK ").toUtf8()});
}

void Test_Mouse_Speed_Custom::a_taken_name_is_refused_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::addRow("that of another entry") << 2 << "DESK";
    QTest::addRow("in lower case") << 2 << "desk";
    QTest::addRow("in mixed case, a later entry") << 1 << "RooM";
    QTest::addRow("a fixed resolution") << 1 << "4K";
    QTest::addRow("a fixed resolution in lower case") << 3 << "2k";
}

void Test_Mouse_Speed_Custom::a_taken_name_is_refused() {
    QFETCH(const int, number);
    QFETCH(const QString, name);
    choose_entry(number);
    type(name, "1", "1");
    expect_warning(*robot, "This custom name already exists");
    submit();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(lite->commands(), QByteArrayList());
}

void Test_Mouse_Speed_Custom::a_name_that_no_other_item_has_in_capitals_passes_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("name");
    QTest::addRow("its own") << 2 << "WALL";
    QTest::addRow("its own in lower case") << 2 << "wall";
    QTest::addRow("an item in lower case, typed so") << 1 << "hall";
    QTest::addRow("an item in lower case, typed in capitals") << 1 << "HALL";
    QTest::addRow("a fixed resolution with a small letter") << 1 << "1080p";
    QTest::addRow("another's with a blank") << 2 << "DE SK";
    QTest::addRow("part of another's") << 2 << "DES";
}

void Test_Mouse_Speed_Custom::a_name_that_no_other_item_has_in_capitals_passes() {
    QFETCH(const int, number);
    QFETCH(const QString, name);
    choose_entry(number);
    type(name, "7", "8");
    submit();
    QCOMPARE(lite->commands(),
             QByteArrayList{QString("//MM CC%1 7 8 %2 ").arg(number).arg(name).toUtf8()});
}

void Test_Mouse_Speed_Custom::the_lists_show_the_new_name_at_once_as_typed() {
    choose_entry(3);
    type(" my bank", "7", "8");
    submit();
    for (int channel = 1; channel <= 4; ++channel) {
        QCOMPARE(lite->resolution(channel).itemText(11), " my bank");
        QCOMPARE(lite->resolution(channel).count(), 13);
    }
    QCOMPARE(lite->label("label_Custom_3").text(), "002 003 hall");
}

void Test_Mouse_Speed_Custom::the_switch_is_asked_for_everything_after_800_ms() {
    choose_entry(2);
    type("my bank", "7", "80");
    QElapsedTimer since_click;
    since_click.start();
    submit();
    QCOMPARE(lite->commands(), QByteArrayList{"//MM CC2 7 80 my bank "});
    QVERIFY(wait_until([&] { return !lite->is_filled(); }));
    QVERIFY2(since_click.elapsed() >= refresh_wait, QByteArray::number(since_click.elapsed()));
    QVERIFY(lite->wait_filled());
    QCOMPARE(lite->commands(), (QByteArrayList{"//rl", "//??", "//BP"}));
    QCOMPARE(lite->resolution(1).itemText(10), "mybank");
    QCOMPARE(lite->label("label_Custom_2").text(), "007 080 my bank");
    QCOMPARE(lite->line_edit("lineEdit_Mouse_Movement_X").text(), "007");
    QCOMPARE(lite->line_edit("lineEdit_Mouse_Movement_Name").text(), "mybank");
}

void Test_Mouse_Speed_Custom::a_refused_entry_starts_no_refresh() {
    type("BANK", "0", "1");
    expect_warning(*robot, "Mouse Speed Range is between 1-500");
    submit();
    QVERIFY(!wait_until([&] { return !lite->is_filled(); }, refresh_wait + 400));
    QCOMPARE(lite->commands(), QByteArrayList());
}

QTEST_MAIN(Test_Mouse_Speed_Custom)

#include "test_mouse_speed_custom.moc"
