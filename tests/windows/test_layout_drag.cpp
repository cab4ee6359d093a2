// SPDX-License-Identifier: MIT

#include "tests/support/layout_table.h"
#include "tests/support/modal_robot.h"
#include "tests/support/own_display.h"
#include "tests/support/wait_until.h"
#include "tests/windows/layout_drag_pointer.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

/// Tiles dragged from cell to cell with the mouse, on a real X server.
class Test_Layout_Drag : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void a_drop_on_a_cell_is_two_changes_of_cells_and_any_other_end_none();
    void a_tile_moves_to_a_free_cell();
    void every_tile_moves_any_number_of_times();
    void a_moved_layout_is_what_submit_sends();
    void a_tile_dropped_on_another_leaves_both_where_they_were();
    void a_tile_dropped_on_its_own_cell_stays();
    void a_tile_dropped_outside_the_table_stays();
    void escape_leaves_the_tile_where_it_was();
    void after_each_refused_drag_the_next_one_sticks();
    void a_gray_tile_stays_gray_and_keeps_its_second_line_data();
    void a_gray_tile_stays_gray_and_keeps_its_second_line();
    void gray_tiles_dropped_on_tiles_stay();
    void a_gray_tile_gets_its_colour_back_where_it_was_dragged_to();
    void other_tiles_move_while_some_are_gray();
    void an_empty_cell_drags_nothing();
    void the_press_after_an_empty_cell_drags_at_once();
    void of_two_chosen_tiles_the_pressed_one_moves();
    void a_layout_read_back_during_a_drag_stands();
    void after_a_read_back_the_next_press_drags_again();
    void dragging_sends_nothing();

private:
    QComboBox& limit() const { return lite->combo("comboBox_Select_active_port"); }
    void set_unit_positions(const std::array<int, 4>& positions);

    const Real_Time time; ///< the display's
    std::unique_ptr<Modal_Robot> robot;
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Layout_Table> table;
    std::unique_ptr<Pointer> pointer;
};

namespace {

/// On the background of the left menu.
const QPoint outside(20, 380);

} // namespace

void Test_Layout_Drag::init() {
    robot = std::make_unique<Modal_Robot>();
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_filled());
    QVERIFY(wait_until([&] { return lite->window().isActiveWindow(); }, 20'000));
    table = std::make_unique<Layout_Table>(*lite);
    table->show_page();
    QVERIFY(wait_until([&] { return table->widget.isVisible(); }));
    pointer = std::make_unique<Pointer>(table->widget);
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Drag::cleanup() {
    pointer.reset();
    table.reset();
    lite.reset();
    QVERIFY2(robot->done(), robot->why());
    QCOMPARE(windows_left(), QStringList());
}

void Test_Layout_Drag::set_unit_positions(const std::array<int, 4>& positions) {
    Switch_State state = lite->device.unit().state();
    state.layout_positions = positions;
    lite->device.unit().set_state(state);
}

// The page's count of changes relies on this; any table that moves its items does so.
void Test_Layout_Drag::a_drop_on_a_cell_is_two_changes_of_cells_and_any_other_end_none() {
    lite->close();
    QTableWidget plain(4, 4);
    plain.setDragDropMode(QAbstractItemView::InternalMove);
    plain.setItem(0, 0, new QTableWidgetItem("a"));
    plain.setItem(0, 1, new QTableWidgetItem("b"));
    plain.resize(600, 400);
    plain.show();
    QVERIFY(wait_until([&] { return plain.isActiveWindow(); }, 20'000));
    const QSignalSpy changes(&plain, &QTableWidget::cellChanged);
    Pointer hand(plain);

    hand.drag(0, 0, 2, 2);
    QVERIFY2(hand.run(), hand.why());
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes.at(0), (QVariantList{0, 0}));
    QCOMPARE(changes.at(1), (QVariantList{2, 2}));

    hand.drag(2, 2, 0, 1);
    QVERIFY2(hand.run(), hand.why());
    QCOMPARE(changes.size(), 4);
    QCOMPARE(plain.item(0, 1)->text(), "a");

    hand.press(0, 1);
    hand.move(2, 1);
    hand.move(0, 1);
    hand.release();
    hand.press(0, 1);
    hand.move(2, 1);
    hand.escape();
    hand.release();
    QVERIFY2(hand.run(), hand.why());
    QCOMPARE(changes.size(), 4);
    QCOMPARE(plain.item(0, 1)->text(), "a");
}

void Test_Layout_Drag::a_tile_moves_to_a_free_cell() {
    pointer->drag(0, 0, 1, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/.1../..../....");
    QVERIFY(table->widget.selectedItems().isEmpty());
    QVERIFY(table->is_armed());
}

void Test_Layout_Drag::every_tile_moves_any_number_of_times() {
    pointer->drag(0, 0, 1, 1);
    pointer->drag(0, 1, 3, 3);
    pointer->drag(0, 2, 3, 0);
    pointer->drag(0, 3, 0, 0);
    pointer->drag(1, 1, 2, 2);
    pointer->drag(2, 2, 1, 1);
    pointer->drag(0, 0, 0, 3);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "...4/.1../..../3..2");
}

void Test_Layout_Drag::a_moved_layout_is_what_submit_sends() {
    pointer->drag(0, 3, 1, 2);
    pointer->drag(0, 0, 1, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".23./.14./..../....");
    robot->expect({.text = "Display topology has been updated"});
    lite->button("pushButtonSubmit").click();
    QVERIFY(wait_until([&] { return lite->device.received_commands().contains("//BP"); }));
    QCOMPARE(lite->commands(), (QByteArrayList{"//FF01B06FF02B02FF03B03FF04B07", "//BP"}));
    QVERIFY(wait_until([&] { return table->is_disarmed(); }));
    QCOMPARE(table->picture(), ".23./.14./..../....");
}

void Test_Layout_Drag::a_tile_dropped_on_another_leaves_both_where_they_were() {
    pointer->drag(0, 0, 0, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1234/..../..../....");
    pointer->drag(0, 3, 0, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Drag::a_tile_dropped_on_its_own_cell_stays() {
    pointer->press(0, 1);
    pointer->move(2, 1);
    pointer->move(0, 1);
    pointer->release();
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Drag::a_tile_dropped_outside_the_table_stays() {
    pointer->press(0, 1);
    pointer->leave_to(outside);
    pointer->release();
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Drag::escape_leaves_the_tile_where_it_was() {
    pointer->press(0, 1);
    pointer->move(2, 2);
    pointer->escape();
    pointer->release();
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Drag::after_each_refused_drag_the_next_one_sticks() {
    pointer->drag(0, 0, 0, 3);
    pointer->drag(0, 0, 1, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/1.../..../....");

    pointer->press(1, 0);
    pointer->move(2, 1);
    pointer->move(1, 0);
    pointer->release();
    pointer->drag(1, 0, 1, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/.1../..../....");

    pointer->press(1, 1);
    pointer->leave_to(outside);
    pointer->release();
    pointer->drag(1, 1, 1, 2);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/..1./..../....");

    pointer->press(1, 2);
    pointer->move(2, 1);
    pointer->escape();
    pointer->release();
    pointer->drag(1, 2, 1, 3);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/...1/..../....");
}

void Test_Layout_Drag::a_gray_tile_stays_gray_and_keeps_its_second_line_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("picture");
    QTest::addRow("limit 3, channel 4") << 1 << 3 << "123./..../.d../....";
    QTest::addRow("limit 2, channel 4") << 0 << 3 << "12c./..../.d../....";
    QTest::addRow("limit 2, channel 3") << 0 << 2 << "12.d/..../.c../....";
}

void Test_Layout_Drag::a_gray_tile_stays_gray_and_keeps_its_second_line() {
    QFETCH(const int, index);
    QFETCH(const int, column);
    QFETCH(const QString, picture);
    limit().setCurrentIndex(index);
    pointer->drag(0, column, 2, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), picture);
}

void Test_Layout_Drag::gray_tiles_dropped_on_tiles_stay() {
    limit().setCurrentIndex(0);
    pointer->drag(0, 3, 0, 2);
    pointer->drag(0, 2, 0, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "12cd/..../..../....");
    limit().setCurrentIndex(1);
    pointer->drag(0, 3, 0, 2);
    pointer->drag(0, 0, 0, 3);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "123d/..../..../....");
}

void Test_Layout_Drag::a_gray_tile_gets_its_colour_back_where_it_was_dragged_to() {
    limit().setCurrentIndex(0);
    pointer->drag(0, 3, 1, 0);
    pointer->drag(0, 2, 1, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "12../dc../..../....");
    limit().setCurrentIndex(1);
    QCOMPARE(table->picture(), "12../d3../..../....");
    limit().setCurrentIndex(2);
    QCOMPARE(table->picture(), "12../43../..../....");
}

void Test_Layout_Drag::other_tiles_move_while_some_are_gray() {
    limit().setCurrentIndex(0);
    pointer->drag(0, 0, 2, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".2cd/..../1.../....");
    limit().setCurrentIndex(1);
    pointer->drag(0, 2, 3, 2);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".2.d/..../1.../..3.");
}

void Test_Layout_Drag::an_empty_cell_drags_nothing() {
    pointer->press(2, 2);
    pointer->move(1, 1);
    pointer->release();
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1234/..../..../....");
    QVERIFY(table->is_disarmed());
}

void Test_Layout_Drag::the_press_after_an_empty_cell_drags_at_once() {
    pointer->click(0, 2);
    pointer->click(3, 3);
    pointer->drag(0, 0, 2, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/..../1.../....");
}

void Test_Layout_Drag::of_two_chosen_tiles_the_pressed_one_moves() {
    pointer->click(0, 1);
    pointer->hold_control();
    pointer->click(0, 3);
    pointer->click(0, 0);
    pointer->let_control_go();
    pointer->drag(0, 1, 1, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1.34/.2../..../....");

    pointer->click(0, 0);
    pointer->hold_control();
    pointer->press(0, 2);
    pointer->move(2, 2);
    pointer->drop();
    pointer->let_control_go();
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1..4/.2../..3./....");
    pointer->drag(2, 2, 2, 3);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "1..4/.2../...3/....");
}

void Test_Layout_Drag::a_layout_read_back_during_a_drag_stands() {
    set_unit_positions({13, 14, 15, 16});
    pointer->press(0, 0);
    pointer->move(1, 1);
    pointer->wait_for([this, is_asked = false]() mutable {
        if (!is_asked) {
            lite->device.send("Saving horizontal dimension as 4\n");
            is_asked = true;
        }
        return table->picture() == "..../..../..../1234";
    });
    pointer->release();
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "..../..../..../1234");
    pointer->drag(3, 0, 2, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), "..../..../1.../.234");
}

void Test_Layout_Drag::after_a_read_back_the_next_press_drags_again() {
    pointer->drag(0, 0, 1, 0);
    QVERIFY2(pointer->run(), pointer->why());
    lite->device.send("Saving horizontal dimension as 4\n");
    QVERIFY(wait_until([&] { return table->is_disarmed(); }));
    QCOMPARE(table->picture(), "1234/..../..../....");
    pointer->drag(0, 0, 1, 0);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(table->picture(), ".234/1.../..../....");
}

void Test_Layout_Drag::dragging_sends_nothing() {
    pointer->drag(0, 0, 1, 0);
    pointer->drag(1, 0, 0, 1);
    QVERIFY2(pointer->run(), pointer->why());
    QCOMPARE(lite->commands(), QByteArrayList());
}

int main(int argc, char** argv) {
    if (!is_on_own_display()) {
        return run_on_own_display(argc, argv);
    }
    QApplication application(argc, argv);
    Test_Layout_Drag test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_layout_drag.moc"
