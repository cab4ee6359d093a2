// SPDX-License-Identifier: MIT

#include "app/event_log.h"
#include "tests/support/layout_table.h"
#include "tests/support/log_folder.h"
#include "tests/support/modal_robot.h"
#include "tests/support/wait_until.h"

#include <QElapsedTimer>
#include <QTest>

#include <array>

using Positions = std::array<int, 4>;
Q_DECLARE_METATYPE(Positions)

/// The layout as the switch reports it: in a report, and after it has confirmed a new one.
class Test_Layout_Report : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_report_puts_the_channels_on_their_cells_data();
    void a_report_puts_the_channels_on_their_cells();
    void two_channels_on_one_cell_are_both_kept_and_the_later_covers_the_earlier();
    void a_position_outside_the_grid_leaves_the_layout_and_one_log_entry_data();
    void a_position_outside_the_grid_leaves_the_layout_and_one_log_entry();
    void a_report_without_a_layout_leaves_the_tiles_data();
    void a_report_without_a_layout_leaves_the_tiles();
    void the_first_line_with_the_layout_mark_counts();
    void a_report_takes_back_what_was_moved_and_not_submitted();
    void a_confirmation_asks_for_the_layout_and_reads_it_after_1000_ms();
    void a_confirmed_layout_is_read_from_the_whole_buffer();
    void a_confirmed_layout_keeps_the_marks_of_the_limit();
    void reading_a_confirmed_layout_back_disarms_dragging();
    void a_report_leaves_dragging_armed();
    void a_confirmed_position_outside_the_grid_leaves_the_layout_and_one_log_entry();
    void a_submit_ends_with_the_switchs_own_view();

private:
    void set_unit_positions(const Positions& positions);
    /// Opens the window and waits until the first report has been read, as far as possible.
    [[nodiscard]] bool open(const QByteArray& text = {});
    /// The same, with this in the report instead of the switch's own layout.
    [[nodiscard]] bool open_with(const QByteArray& layout_text);
    [[nodiscard]] QByteArray submitted_command();

    std::unique_ptr<Log_Folder> log;
    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Layout_Table> table;
};

namespace {

constexpr int layout_wait = 1000;

Fault_Plan without_layout() {
    Fault_Plan plan;
    plan.missing_key = "//FF";
    return plan;
}

} // namespace

void Test_Layout_Report::init() {
    log = std::make_unique<Log_Folder>();
    QCOMPARE(open_log(), 1);
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
}

void Test_Layout_Report::cleanup() {
    table.reset();
    lite.reset();
    close_log();
    log.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Layout_Report::set_unit_positions(const Positions& positions) {
    Switch_State state = lite->device.unit().state();
    state.layout_positions = positions;
    lite->device.unit().set_state(state);
}

bool Test_Layout_Report::open(const QByteArray& text) {
    const bool filled = lite->open_filled(text);
    table = std::make_unique<Layout_Table>(*lite);
    table->show_page();
    return filled;
}

bool Test_Layout_Report::open_with(const QByteArray& layout_text) {
    lite->device.set_faults(without_layout());
    return open(layout_text);
}

/// The command that Submit sends for the current layout, whatever the box shows.
QByteArray Test_Layout_Report::submitted_command() {
    Fault_Plan silence;
    silence.silence = true;
    lite->device.set_faults(silence);
    robot->expect({.class_name = "QMessageBox"});
    (void)lite->commands();
    lite->button("pushButtonSubmit").click();
    return lite->commands().join('\r');
}

void Test_Layout_Report::a_report_puts_the_channels_on_their_cells_data() {
    QTest::addColumn<Positions>("positions");
    QTest::addColumn<QString>("picture");
    QTest::addRow("corners") << Positions{1, 4, 13, 16} << "1..2/..../..../3..4";
    QTest::addRow("column") << Positions{5, 9, 13, 1} << "4.../1.../2.../3...";
    QTest::addRow("block") << Positions{6, 7, 10, 11} << "..../.12./.34./....";
    QTest::addRow("last row backwards") << Positions{16, 15, 14, 13} << "..../..../..../4321";
}

void Test_Layout_Report::a_report_puts_the_channels_on_their_cells() {
    QFETCH(const Positions, positions);
    QFETCH(const QString, picture);
    set_unit_positions(positions);
    QVERIFY(open());
    QCOMPARE(table->picture(), picture);
}

void Test_Layout_Report::two_channels_on_one_cell_are_both_kept_and_the_later_covers_the_earlier() {
    set_unit_positions({1, 2, 2, 6});
    QVERIFY(open());
    QCOMPARE(table->picture(), "13../.4../..../....");
    QCOMPARE(submitted_command(), QByteArray("//FF01B01FF02B02FF03B02FF04B06"));
    // 1 next to 3; 2 and 3 each next to 1 and 4; 4 below 3.
    QCOMPARE(robot->snapshots().constLast().text, "Display topology has been updated");
}

void Test_Layout_Report::a_position_outside_the_grid_leaves_the_layout_and_one_log_entry_data() {
    QTest::addColumn<QByteArray>("layout_text");
    QTest::addRow("00") << QByteArray("//FF01B00FF02B02FF03B03FF04B04\n");
    QTest::addRow("17") << QByteArray("//FF01B05FF02B06FF03B17FF04B08\n");
    QTest::addRow("99 and 00") << QByteArray("//FF01B99FF02B06FF03B00FF04B08\n");
}

void Test_Layout_Report::a_position_outside_the_grid_leaves_the_layout_and_one_log_entry() {
    QFETCH(const QByteArray, layout_text);
    QVERIFY(open_with(layout_text));
    QCOMPARE(table->picture(), "1234/..../..../....");
    QCOMPARE(log->entries().size(), 1);
    QCOMPARE(robot->snapshots().size(), 0);
    QCOMPARE(submitted_command(), QByteArray("//FF01B01FF02B02FF03B03FF04B04"));
}

void Test_Layout_Report::a_report_without_a_layout_leaves_the_tiles_data() {
    QTest::addColumn<QByteArray>("layout_text");
    QTest::addRow("no line at all") << QByteArray("\n");
    QTest::addRow("empty line") << QByteArray("//FF\n");
    QTest::addRow("channel 1 is missing") << QByteArray("//FFxxB05FF02B06FF03B07FF04B08\n");
    QTest::addRow("channel 4 is missing") << QByteArray("//FF01B05FF02B06FF03B07\n");
    QTest::addRow("one digit only at the end") << QByteArray("//FF01B05FF02B06FF03B07FF04B8\n");
    QTest::addRow("no digits") << QByteArray("//FF01B05FF02BxyFF03B07FF04B08\n");
    QTest::addRow("keys on a second line") << QByteArray("//FF01B05FF02B06\nFF03B07FF04B08\n");
}

void Test_Layout_Report::a_report_without_a_layout_leaves_the_tiles() {
    QFETCH(const QByteArray, layout_text);
    robot->expect({.text = "Setting data from TQL error", .icon = QMessageBox::Warning});
    QVERIFY(open_with(layout_text));
    QVERIFY(wait_until([&] { return robot->done(); }));
    QCOMPARE(table->picture(), "1234/..../..../....");
    QCOMPARE(log->entries(), QStringList{"Setting data from TQL error"});
}

void Test_Layout_Report::the_first_line_with_the_layout_mark_counts() {
    QVERIFY(open_with("x //FF01B05FF02B06FF03B07FF04B08\n//FF01B09FF02B10FF03B11FF04B12\n"));
    QCOMPARE(table->picture(), "..../1234/..../....");
}

void Test_Layout_Report::a_report_takes_back_what_was_moved_and_not_submitted() {
    QVERIFY(open());
    // The table's own drag does the same: the item is taken, and set.
    table->widget.setItem(3, 0, table->widget.takeItem(0, 0));
    QCOMPARE(table->picture(), ".234/..../..../1...");
    QVERIFY(lite->run_slot("refresh_UI"));
    QVERIFY(lite->wait_filled());
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Report::a_confirmation_asks_for_the_layout_and_reads_it_after_1000_ms() {
    QVERIFY(open());
    set_unit_positions({13, 14, 15, 16});
    QElapsedTimer since_confirmation;
    connect(&lite->terminal(), &QTextEdit::textChanged, this, [&] {
        // The timer starts right after the terminal has been updated.
        if (!since_confirmation.isValid()) {
            since_confirmation.start();
        }
    });
    lite->device.send("Saving horizontal dimension as 4\n");
    QVERIFY(wait_until([&] { return lite->terminal_text().endsWith("FF04B16\n"); }));
    QCOMPARE(table->picture(), "1234/..../..../....");
    QVERIFY(wait_until([&] { return table->picture() == "..../..../..../1234"; }));
    QVERIFY2(since_confirmation.elapsed() >= layout_wait,
             QByteArray::number(since_confirmation.elapsed()));
    QCOMPARE(lite->commands(), QByteArrayList{"//BP"});
}

void Test_Layout_Report::a_confirmed_layout_is_read_from_the_whole_buffer() {
    QVERIFY(open());
    lite->device.set_faults(without_layout());
    QVERIFY(lite->say("Saving horizontal dimension as 4\n"));
    // No "//FF", and the keys on several lines, in any order; each counts at its first position.
    QVERIFY(lite->say("03B07\n01B05, 02B06\n04B08\n04B02\n"));
    QVERIFY(wait_until([&] { return table->picture() != "1234/..../..../...."; }));
    QCOMPARE(table->picture(), "..../1234/..../....");
}

void Test_Layout_Report::a_confirmed_layout_keeps_the_marks_of_the_limit() {
    QVERIFY(open());
    lite->combo("comboBox_Select_active_port").setCurrentIndex(0);
    set_unit_positions({1, 5, 9, 13});
    lite->device.send("Saving horizontal dimension as 1\n");
    QVERIFY(wait_until([&] { return table->picture() == "1.../2.../c.../d..."; }));
}

void Test_Layout_Report::reading_a_confirmed_layout_back_disarms_dragging() {
    QVERIFY(open());
    table->press(0, 0);
    QVERIFY(table->is_armed());
    set_unit_positions({1, 5, 9, 13});
    lite->device.send("Saving horizontal dimension as 1\n");
    QVERIFY(wait_until([&] { return table->picture() == "1.../2.../3.../4..."; }));
    QVERIFY(table->is_disarmed());
    table->press(0, 0);
    QVERIFY(table->is_armed());
}

void Test_Layout_Report::a_report_leaves_dragging_armed() {
    QVERIFY(open());
    table->press(0, 0);
    QVERIFY(lite->run_slot("refresh_UI"));
    QVERIFY(lite->wait_filled());
    QVERIFY(table->is_armed());
}

void Test_Layout_Report::
    a_confirmed_position_outside_the_grid_leaves_the_layout_and_one_log_entry() {
    QVERIFY(open());
    table->press(0, 0);
    lite->device.set_faults(without_layout());
    QVERIFY(lite->say("Saving horizontal dimension as 4\n"));
    QVERIFY(lite->say("//FF01B05FF02B06FF03B07FF04B17\n"));
    QVERIFY(wait_until([&] { return table->is_disarmed(); }));
    QCOMPARE(table->picture(), "1234/..../..../....");
    QCOMPARE(log->entries().size(), 1);
    QCOMPARE(robot->snapshots().size(), 0);
}

void Test_Layout_Report::a_submit_ends_with_the_switchs_own_view() {
    QVERIFY(open());
    lite->device.set_faults(without_layout());
    robot->expect({.text = "Display topology has been updated"});
    lite->button("pushButtonSubmit").click();
    QVERIFY(wait_until([&] { return lite->device.received_commands().contains("//BP"); }));
    lite->device.send("//FF01B16FF02B12FF03B08FF04B04\n");
    QVERIFY(wait_until([&] { return table->picture() == "...4/...3/...2/...1"; }));
}

QTEST_MAIN(Test_Layout_Report)

#include "test_layout_report.moc"
