// SPDX-License-Identifier: MIT

#include "tests/support/layout_table.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QTest>

/// Channels beyond the port limit turn gray, whether the user or the switch sets the limit.
class Test_Layout_Inactive : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_users_limit_of_3_marks_channel_4_and_of_2_both_data();
    void the_users_limit_of_3_marks_channel_4_and_of_2_both();
    void a_gray_tile_says_inactive_in_its_second_line();
    void a_higher_limit_gives_the_colours_back();
    void the_same_limit_from_user_and_report_leaves_one_mark();
    void a_reported_limit_marks_the_tiles_where_they_stand_data();
    void a_reported_limit_marks_the_tiles_where_they_stand();
    void a_limit_without_a_layout_marks_one_channel_less_data();
    void a_limit_without_a_layout_marks_one_channel_less();
    void a_missing_limit_leaves_none_chosen_and_marks_both();
    void a_change_while_no_port_is_open_marks_but_sends_nothing();

private:
    QComboBox& limit() const { return lite->combo("comboBox_Select_active_port"); }
    void set_unit_limit(int port_limit, const std::array<int, 4>& positions = {1, 2, 3, 4});
    /// Opens the window and waits until the report has been read, as far as possible.
    [[nodiscard]] bool open();
    /// Reads everything from the switch again.
    [[nodiscard]] bool refresh();

    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Layout_Table> table;
};

void Test_Layout_Inactive::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
}

void Test_Layout_Inactive::cleanup() {
    table.reset();
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Layout_Inactive::set_unit_limit(int port_limit, const std::array<int, 4>& positions) {
    Switch_State state = lite->device.unit().state();
    state.port_limit = port_limit;
    state.layout_positions = positions;
    lite->device.unit().set_state(state);
}

bool Test_Layout_Inactive::open() {
    const bool filled = lite->open_filled();
    table = std::make_unique<Layout_Table>(*lite);
    return filled;
}

bool Test_Layout_Inactive::refresh() {
    // The switch must have executed the earlier commands.
    (void)lite->commands();
    return lite->run_slot("refresh_UI") && !lite->is_filled() && lite->wait_filled();
}

void Test_Layout_Inactive::the_users_limit_of_3_marks_channel_4_and_of_2_both_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QString>("picture");
    QTest::addRow("limit 3") << 1 << QByteArray("//D3") << "123d/..../..../....";
    QTest::addRow("limit 2") << 0 << QByteArray("//D2") << "12cd/..../..../....";
}

void Test_Layout_Inactive::the_users_limit_of_3_marks_channel_4_and_of_2_both() {
    QVERIFY(open());
    QFETCH(const int, index);
    QFETCH(const QByteArray, command);
    QFETCH(const QString, picture);
    limit().setCurrentIndex(index);
    QCOMPARE(table->picture(), picture);
    QCOMPARE(lite->commands(), QByteArrayList{command});
    limit().setCurrentIndex(2);
    QCOMPARE(table->picture(), "1234/..../..../....");
    QCOMPARE(lite->commands(), QByteArrayList{"//D4"});
}

void Test_Layout_Inactive::a_gray_tile_says_inactive_in_its_second_line() {
    QVERIFY(open());
    limit().setCurrentIndex(0);
    QCOMPARE(table->widget.item(0, 2)->text(), "Channel 3\nINACTIVE");
    QCOMPARE(table->widget.item(0, 3)->text(), "Channel 4\nINACTIVE");
    QCOMPARE(table->widget.item(0, 2)->background(), QBrush(Qt::gray));
    QCOMPARE(table->widget.item(0, 3)->background(), QBrush(Qt::gray));
    QCOMPARE(table->widget.item(0, 3)->font().family(), "Arial");
    QCOMPARE(table->widget.item(0, 3)->textAlignment(), 132);
}

void Test_Layout_Inactive::a_higher_limit_gives_the_colours_back() {
    QVERIFY(open());
    limit().setCurrentIndex(0);
    limit().setCurrentIndex(1);
    QCOMPARE(table->picture(), "123d/..../..../....");
    limit().setCurrentIndex(0);
    QCOMPARE(table->picture(), "12cd/..../..../....");
    limit().setCurrentIndex(2);
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Inactive::the_same_limit_from_user_and_report_leaves_one_mark() {
    QVERIFY(open());
    limit().setCurrentIndex(0);
    QVERIFY(refresh());
    QCOMPARE(lite->device.unit().state().port_limit, 2);
    QCOMPARE(limit().currentIndex(), 0);
    QCOMPARE(table->picture(), "12cd/..../..../....");
}

void Test_Layout_Inactive::a_reported_limit_marks_the_tiles_where_they_stand_data() {
    QTest::addColumn<int>("port_limit");
    QTest::addColumn<QString>("picture");
    QTest::addRow("limit 2") << 2 << "..../.1c./.2d./....";
    QTest::addRow("limit 3") << 3 << "..../.13./.2d./....";
    QTest::addRow("limit 4") << 4 << "..../.13./.24./....";
}

void Test_Layout_Inactive::a_reported_limit_marks_the_tiles_where_they_stand() {
    QFETCH(const int, port_limit);
    QFETCH(const QString, picture);
    set_unit_limit(port_limit, {6, 10, 7, 11});
    QVERIFY(open());
    QCOMPARE(limit().currentIndex(), port_limit - 2);
    QCOMPARE(table->picture(), picture);
    QCOMPARE(lite->commands(), QByteArrayList());
}

// The report's own limit counts one port more; only the layout that follows sets the final marks.
void Test_Layout_Inactive::a_limit_without_a_layout_marks_one_channel_less_data() {
    QTest::addColumn<int>("earlier_limit");
    QTest::addColumn<int>("reported_limit");
    QTest::addColumn<QString>("picture");
    QTest::addRow("4 to 2") << 4 << 2 << "123d/..../..../....";
    QTest::addRow("4 to 3") << 4 << 3 << "1234/..../..../....";
    QTest::addRow("3 to 2") << 3 << 2 << "123d/..../..../....";
    QTest::addRow("2 to 2") << 2 << 2 << "123d/..../..../....";
    QTest::addRow("2 to 3") << 2 << 3 << "1234/..../..../....";
    QTest::addRow("2 to 4") << 2 << 4 << "1234/..../..../....";
}

void Test_Layout_Inactive::a_limit_without_a_layout_marks_one_channel_less() {
    QFETCH(const int, earlier_limit);
    QFETCH(const int, reported_limit);
    QFETCH(const QString, picture);
    set_unit_limit(earlier_limit);
    QVERIFY(open());
    set_unit_limit(reported_limit);
    Fault_Plan no_layout;
    no_layout.missing_key = "//FF";
    lite->device.set_faults(no_layout);
    robot->expect({.text = "Setting data from TQL error", .icon = QMessageBox::Warning});
    QVERIFY(refresh());
    QVERIFY(wait_until([&] { return robot->done(); }));
    QCOMPARE(limit().currentIndex(), reported_limit - 2);
    QCOMPARE(table->picture(), picture);
}

void Test_Layout_Inactive::a_missing_limit_leaves_none_chosen_and_marks_both() {
    Fault_Plan no_limit;
    no_limit.missing_key = "KM Port Limit";
    lite->device.set_faults(no_limit);
    QVERIFY(open());
    QCOMPARE(limit().currentIndex(), -1);
    QCOMPARE(table->picture(), "12cd/..../..../....");
}

void Test_Layout_Inactive::a_change_while_no_port_is_open_marks_but_sends_nothing() {
    QVERIFY(open());
    lite->button("pushButton_OFF_Connection").click();
    limit().setCurrentIndex(1);
    QCOMPARE(table->picture(), "123d/..../..../....");
    lite->button("pushButton_ON_Connection").click();
    QVERIFY(lite->wait_connected());
    QCOMPARE(lite->commands(), (QByteArrayList{"//rl", "//??", "//BP"}));
}

QTEST_MAIN(Test_Layout_Inactive)

#include "test_layout_inactive.moc"
