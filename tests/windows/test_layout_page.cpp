// SPDX-License-Identifier: MIT

#include "tests/support/layout_table.h"
#include "tests/support/modal_robot.h"

#include <QHeaderView>
#include <QTest>

/// The initial state of the layout page, and the effect of pressing a cell.
class Test_Layout_Page : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void the_page_starts_with_the_four_channels_in_the_top_row();
    void a_tile_is_centred_bold_arial_18();
    void the_table_is_four_by_four_without_headers_and_fills_its_place();
    void the_forms_style_sheet_stands_until_the_first_press_of_a_tile();
    void a_pressed_tile_is_selected_in_its_own_colour_half_transparent_data();
    void a_pressed_tile_is_selected_in_its_own_colour_half_transparent();
    void a_pressed_gray_tile_is_selected_in_gray();
    void a_pressed_tile_arms_dragging();
    void a_pressed_empty_cell_changes_no_style_and_disarms_dragging();
    void dragging_stays_armed_until_an_empty_cell_is_pressed();
    void one_tile_is_selected_at_a_time();
    void a_double_click_edits_no_tile();
    void pressing_sends_nothing();

private:
    std::unique_ptr<Lite_Fixture> lite;
    std::unique_ptr<Layout_Table> table;
};

namespace {

QString selection_style(const QString& colour) {
    return "QTableWidget::item:selected { background-color: rgba(" + colour +
           ", 128); border: 5px solid black;} QTableWidget {background-color: rgb(109, 109, 105); "
           "gridline-color: rgb(159, 159, 159);}";
}

const char* const form_style = "background-color: rgb(109, 109, 105);\n"
                               "selection-background-color: rgba(239, 255, 96, 50);\n"
                               "gridline-color: rgb(159, 159, 159);";

} // namespace

void Test_Layout_Page::init() {
    lite = std::make_unique<Lite_Fixture>();
    QVERIFY(lite->open_connected());
    table = std::make_unique<Layout_Table>(*lite);
    table->show_page();
    QVERIFY(table->widget.isVisible());
}

void Test_Layout_Page::cleanup() {
    table.reset();
    lite.reset();
    QCOMPARE(windows_left(), QStringList());
}

void Test_Layout_Page::the_page_starts_with_the_four_channels_in_the_top_row() {
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Page::a_tile_is_centred_bold_arial_18() {
    for (int column = 0; column < 4; ++column) {
        const QTableWidgetItem* tile = table->widget.item(0, column);
        QCOMPARE(tile->type(), 0);
        QCOMPARE(tile->data(Qt::TextAlignmentRole).toInt(), 132);
        QCOMPARE(tile->font().family(), "Arial");
        QCOMPARE(tile->font().pointSize(), 18);
        QCOMPARE(static_cast<int>(tile->font().weight()), 700);
        QCOMPARE(tile->background().style(), Qt::SolidPattern);
    }
}

void Test_Layout_Page::the_table_is_four_by_four_without_headers_and_fills_its_place() {
    QCOMPARE(table->widget.rowCount(), 4);
    QCOMPARE(table->widget.columnCount(), 4);
    for (const QHeaderView* header :
         {table->widget.horizontalHeader(), table->widget.verticalHeader()}) {
        QVERIFY(header->isHidden());
        for (int section = 0; section < 4; ++section) {
            QCOMPARE(header->sectionResizeMode(section), QHeaderView::Stretch);
        }
    }
    QCOMPARE(table->widget.editTriggers(), QAbstractItemView::NoEditTriggers);
}

void Test_Layout_Page::the_forms_style_sheet_stands_until_the_first_press_of_a_tile() {
    QCOMPARE(table->widget.styleSheet(), form_style);
    table->press(2, 2);
    QCOMPARE(table->widget.styleSheet(), form_style);
    table->press(0, 0);
    QCOMPARE(table->widget.styleSheet(), selection_style("255, 255, 0"));
}

void Test_Layout_Page::a_pressed_tile_is_selected_in_its_own_colour_half_transparent_data() {
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("colour");
    QTest::addRow("channel 1, yellow") << 0 << "255, 255, 0";
    QTest::addRow("channel 2, green") << 1 << "0, 255, 0";
    QTest::addRow("channel 3, blue") << 2 << "0, 0, 255";
    QTest::addRow("channel 4, red") << 3 << "255, 0, 0";
}

void Test_Layout_Page::a_pressed_tile_is_selected_in_its_own_colour_half_transparent() {
    QFETCH(const int, column);
    QFETCH(const QString, colour);
    table->press(0, column);
    QCOMPARE(table->widget.styleSheet(), selection_style(colour));
    QCOMPARE(table->widget.selectedItems(),
             QList<QTableWidgetItem*>{table->widget.item(0, column)});
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Page::a_pressed_gray_tile_is_selected_in_gray() {
    QVERIFY(lite->wait_filled());
    lite->combo("comboBox_Select_active_port").setCurrentIndex(0);
    QCOMPARE(table->picture(), "12cd/..../..../....");
    for (const int column : {2, 3}) {
        table->press(0, 0);
        table->press(0, column);
        QCOMPARE(table->widget.styleSheet(), selection_style("160, 160, 164"));
        QVERIFY(table->widget.item(0, column)->isSelected());
        QVERIFY(table->is_armed());
    }
}

void Test_Layout_Page::a_pressed_tile_arms_dragging() {
    QVERIFY(!table->widget.dragEnabled());
    QTest::mousePress(table->widget.viewport(), Qt::LeftButton, {}, table->centre(0, 1));
    QVERIFY(table->is_armed());
    QCOMPARE(table->widget.selectionMode(), QAbstractItemView::ExtendedSelection);
    QTest::mouseRelease(table->widget.viewport(), Qt::LeftButton, {}, table->centre(0, 1));
    QVERIFY(table->is_armed());
}

void Test_Layout_Page::a_pressed_empty_cell_changes_no_style_and_disarms_dragging() {
    table->press(0, 2);
    const QString style = table->widget.styleSheet();
    table->press(3, 1);
    QVERIFY(table->is_disarmed());
    QCOMPARE(table->widget.selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(table->widget.styleSheet(), style);
    QVERIFY(!table->widget.selectionModel()->isSelected(table->widget.model()->index(3, 1)));
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Page::dragging_stays_armed_until_an_empty_cell_is_pressed() {
    table->press(0, 2);
    table->press(0, 0);
    QVERIFY(table->is_armed());
    lite->button("ConfigurationBtn").click();
    table->show_page();
    QVERIFY(table->is_armed());
    table->press(1, 0);
    QVERIFY(table->is_disarmed());
    table->press(0, 0);
    QVERIFY(table->is_armed());
    QCOMPARE(table->widget.selectionMode(), QAbstractItemView::ExtendedSelection);
}

void Test_Layout_Page::one_tile_is_selected_at_a_time() {
    table->press(0, 0);
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::KeyboardModifiers(Qt::NoModifier)}) {
        table->press(0, 0);
        QTest::mousePress(table->widget.viewport(), Qt::LeftButton, modifiers, table->centre(0, 3));
        QCOMPARE(table->widget.selectedItems(), QList<QTableWidgetItem*>{table->widget.item(0, 3)});
        QTest::mouseRelease(table->widget.viewport(), Qt::LeftButton, modifiers,
                            table->centre(0, 3));
    }
    table->widget.selectAll();
    QTest::mousePress(table->widget.viewport(), Qt::LeftButton, {}, table->centre(0, 1));
    QCOMPARE(table->widget.selectedItems(), QList<QTableWidgetItem*>{table->widget.item(0, 1)});
    QTest::mouseRelease(table->widget.viewport(), Qt::LeftButton, {}, table->centre(0, 1));
}

void Test_Layout_Page::a_double_click_edits_no_tile() {
    table->press(0, 0);
    QTest::mouseDClick(table->widget.viewport(), Qt::LeftButton, {}, table->centre(0, 0));
    QTest::keyClick(&table->widget, Qt::Key_F2);
    QTest::keyClicks(&table->widget, "abc");
    QVERIFY(!table->widget.isPersistentEditorOpen(table->widget.item(0, 0)));
    QVERIFY(table->widget.findChildren<QLineEdit*>().isEmpty());
    QCOMPARE(table->picture(), "1234/..../..../....");
}

void Test_Layout_Page::pressing_sends_nothing() {
    (void)lite->commands();
    table->press(0, 0);
    table->press(0, 3);
    table->press(2, 2);
    QCOMPARE(lite->commands(), QByteArrayList());
}

QTEST_MAIN(Test_Layout_Page)

#include "test_layout_page.moc"
