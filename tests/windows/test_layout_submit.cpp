// SPDX-License-Identifier: MIT

#include "tests/support/expect_box.h"
#include "tests/support/layout_table.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QTest>

/// Submit: the check of the layout, and the bytes that are sent to the switch.
class Test_Layout_Submit : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_box_tells_whether_the_displays_touch_data();
    void the_box_tells_whether_the_displays_touch();
    void with_all_ports_nothing_goes_out_but_the_layout();
    void with_fewer_ports_the_limit_is_lifted_for_the_layout_data();
    void with_fewer_ports_the_limit_is_lifted_for_the_layout();
    void nothing_goes_out_before_the_box_is_dismissed();
    void an_unconnected_layout_is_sent_all_the_same();
    void the_marks_come_back_after_a_submit();
    void with_no_limit_chosen_the_index_is_put_back_all_the_same();
    void without_a_port_the_box_comes_and_no_byte_goes();
    void submitting_changes_no_tile();

private:
    QComboBox& limit() const { return lite->combo("comboBox_Select_active_port"); }
    /// Fills the page from a unit whose channels are in four grid cells.
    [[nodiscard]] bool open_with(const std::array<int, 4>& positions, int port_limit = 4);
    void expect_connected();
    /// From now on the switch does not answer, so that its answers cause no further commands.
    void silence();
    [[nodiscard]] QByteArray submitted_bytes();

    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Layout_Table> table;
};

using Positions = std::array<int, 4>;
Q_DECLARE_METATYPE(Positions)

void Test_Layout_Submit::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
}

void Test_Layout_Submit::cleanup() {
    table.reset();
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

bool Test_Layout_Submit::open_with(const Positions& positions, int port_limit) {
    Switch_State state;
    state.layout_positions = positions;
    state.port_limit = port_limit;
    lite->device.unit().set_state(state);
    const bool filled = lite->open_filled();
    table = std::make_unique<Layout_Table>(*lite);
    table->show_page();
    return filled;
}

void Test_Layout_Submit::expect_connected() {
    expect_information(*robot, "Display topology has been updated");
}

void Test_Layout_Submit::silence() {
    Fault_Plan plan;
    plan.silence = true;
    lite->device.set_faults(plan);
}

QByteArray Test_Layout_Submit::submitted_bytes() {
    lite->button("pushButtonSubmit").click();
    return lite->commands().join('\r');
}

void Test_Layout_Submit::the_box_tells_whether_the_displays_touch_data() {
    QTest::addColumn<Positions>("positions");
    QTest::addColumn<bool>("connected");
    QTest::addRow("row") << Positions{1, 2, 3, 4} << true;
    QTest::addRow("column, out of order") << Positions{14, 6, 2, 10} << true;
    QTest::addRow("L") << Positions{1, 5, 9, 10} << true;
    QTest::addRow("T") << Positions{5, 6, 7, 10} << true;
    QTest::addRow("S") << Positions{6, 7, 9, 10} << true;
    QTest::addRow("2 by 2 block") << Positions{11, 12, 15, 16} << true;
    QTest::addRow("two pairs") << Positions{1, 2, 15, 16} << false;
    QTest::addRow("corner to corner") << Positions{1, 6, 11, 16} << false;
    QTest::addRow("three and one apart") << Positions{1, 2, 3, 16} << false;
    QTest::addRow("ends of two rows") << Positions{3, 4, 5, 6} << false;
    QTest::addRow("three in a row, the middle one twice") << Positions{1, 2, 2, 3} << true;
    QTest::addRow("three in a row, an end twice") << Positions{1, 1, 2, 3} << false;
}

void Test_Layout_Submit::the_box_tells_whether_the_displays_touch() {
    QFETCH(const Positions, positions);
    QFETCH(const bool, connected);
    QVERIFY(open_with(positions));
    silence();
    if (connected) {
        expect_connected();
    } else {
        expect_warning(*robot, "Failed to update, connect all displays");
    }
    QByteArray command = "//";
    for (int channel = 1; channel <= 4; ++channel) {
        const int position = positions.at(static_cast<std::size_t>(channel - 1));
        command += "FF0" + QByteArray::number(channel) + 'B' +
                   QByteArray::number(position).rightJustified(2, '0');
    }
    QCOMPARE(submitted_bytes(), command);
    QVERIFY2(robot->done(), robot->why());
}

void Test_Layout_Submit::with_all_ports_nothing_goes_out_but_the_layout() {
    QVERIFY(open_with({1, 2, 3, 4}));
    silence();
    expect_connected();
    lite->button("pushButtonSubmit").click();
    const QByteArray wanted = "//FF01B01FF02B02FF03B03FF04B04\r";
    QVERIFY(wait_until([&] { return lite->device.received_bytes().size() >= wanted.size(); }));
    QCOMPARE(lite->device.received_bytes(), wanted);
    QCOMPARE(lite->commands(), QByteArrayList{wanted.chopped(1)});
}

void Test_Layout_Submit::with_fewer_ports_the_limit_is_lifted_for_the_layout_data() {
    QTest::addColumn<int>("port_limit");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addRow("limit 2") << 2 << QByteArray("//D4\r//FF01B01FF02B05FF03B02FF04B06\r//D2\r");
    QTest::addRow("limit 3") << 3 << QByteArray("//D4\r//FF01B01FF02B05FF03B02FF04B06\r//D3\r");
}

void Test_Layout_Submit::with_fewer_ports_the_limit_is_lifted_for_the_layout() {
    QFETCH(const int, port_limit);
    QFETCH(const QByteArray, bytes);
    QVERIFY(open_with({1, 5, 2, 6}, port_limit));
    silence();
    expect_connected();
    lite->button("pushButtonSubmit").click();
    QVERIFY(wait_until([&] { return lite->device.received_bytes().size() >= bytes.size(); }));
    QCOMPARE(lite->device.received_bytes(), bytes);
    lite->device.clear_record();
    QCOMPARE(lite->commands(), QByteArrayList());
    QCOMPARE(limit().currentIndex(), port_limit - 2);
}

void Test_Layout_Submit::nothing_goes_out_before_the_box_is_dismissed() {
    QVERIFY(open_with({1, 2, 3, 4}, 2));
    QByteArrayList before_ok = {"not looked at"};
    robot->expect({.text = "Display topology has been updated", .action = [&](QWidget& box) {
                       before_ok = lite->commands();
                       return press_key(Qt::Key_Return)(box);
                   }});
    lite->button("pushButtonSubmit").click();
    QCOMPARE(before_ok, QByteArrayList());
    QVERIFY(wait_until([&] { return lite->device.received_commands().size() >= 3; }));
    QCOMPARE(lite->device.received_commands().first(), QByteArray("//D4"));
}

void Test_Layout_Submit::an_unconnected_layout_is_sent_all_the_same() {
    QVERIFY(open_with({1, 3, 9, 16}, 3));
    robot->expect({.text = "Failed to update, connect all displays", .icon = QMessageBox::Warning});
    lite->button("pushButtonSubmit").click();
    QVERIFY(wait_until([&] { return lite->device.received_commands().contains("//BP"); }));
    QCOMPARE(lite->commands(),
             (QByteArrayList{"//D4", "//FF01B01FF02B03FF03B09FF04B16", "//D3", "//BP"}));
    QCOMPARE(lite->device.unit().state().layout_positions, (Positions{1, 3, 9, 16}));
}

void Test_Layout_Submit::the_marks_come_back_after_a_submit() {
    QVERIFY(open_with({1, 2, 3, 4}, 2));
    silence();
    expect_connected();
    lite->button("pushButtonSubmit").click();
    QCOMPARE(table->picture(), "12cd/..../..../....");
    limit().setCurrentIndex(1);
    expect_connected();
    lite->button("pushButtonSubmit").click();
    QCOMPARE(table->picture(), "123d/..../..../....");
}

void Test_Layout_Submit::with_no_limit_chosen_the_index_is_put_back_all_the_same() {
    QVERIFY(open_with({1, 2, 3, 4}));
    silence();
    limit().setCurrentIndex(-1);
    (void)lite->commands();
    expect_connected();
    QCOMPARE(submitted_bytes(), QByteArray("//D4\r//FF01B01FF02B02FF03B03FF04B04\r//D1"));
    QCOMPARE(limit().currentIndex(), -1);
    QCOMPARE(table->picture(), "12cd/..../..../....");
}

void Test_Layout_Submit::without_a_port_the_box_comes_and_no_byte_goes() {
    QVERIFY(open_with({1, 2, 3, 4}, 2));
    lite->button("pushButton_OFF_Connection").click();
    QVERIFY(!lite->button("pushButtonSubmit").isEnabled());
    expect_connected();
    QVERIFY(lite->run_slot("on_pushButtonSubmit_clicked"));
    QCOMPARE(table->picture(), "12cd/..../..../....");
    // The next commands that the switch receives are the questions of the next connection.
    lite->button("pushButton_ON_Connection").click();
    QCOMPARE(lite->commands(), (QByteArrayList{"//rl", "//??", "//BP"}));
}

void Test_Layout_Submit::submitting_changes_no_tile() {
    QVERIFY(open_with({1, 2, 3, 4}));
    silence();
    // Not by the user but as the table's own drag does: the item is taken, and set.
    table->widget.setItem(1, 2, table->widget.takeItem(0, 3));
    QCOMPARE(table->picture(), "123./..4./..../....");
    expect_connected();
    QCOMPARE(submitted_bytes(), QByteArray("//FF01B01FF02B02FF03B03FF04B07"));
    QCOMPARE(table->picture(), "123./..4./..../....");
}

QTEST_MAIN(Test_Layout_Submit)

#include "test_layout_submit.moc"
