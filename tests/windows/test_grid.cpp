// SPDX-License-Identifier: MIT

#include "pages/grid.h"
#include "pages/setting_values.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>
#include <utility>

/// The arithmetic of the 4 by 4 grid, without a window.
class Test_Grid : public QObject {
    Q_OBJECT

private slots:
    void cell_numbers_run_row_by_row_data();
    void cell_numbers_run_row_by_row();
    void numbers_outside_1_to_16_are_not_on_the_grid_data();
    void numbers_outside_1_to_16_are_not_on_the_grid();
    void only_the_beginning_of_a_position_text_has_to_be_a_number();
    void a_position_text_without_a_number_throws_data();
    void a_position_text_without_a_number_throws();
    void the_default_layout_is_the_top_row_in_channel_order();
    void cells_give_their_channels_names_and_colours_back();
    void the_command_of_the_default_layout_is_known();
    void the_command_names_the_channels_in_order_wherever_they_stand();
    void the_command_follows_the_colour_and_not_the_name();
    void a_gray_tile_comes_out_as_digit_3();
    void a_tile_of_another_colour_adds_nothing_to_the_command();
    void coordinates_are_row_and_column_with_a_blank_between();
    void coordinates_are_cut_at_nine_characters();
    void a_coordinates_line_is_read_behind_its_label_data();
    void a_coordinates_line_is_read_behind_its_label();
    void a_coordinates_line_that_holds_no_numbers_throws_data();
    void a_coordinates_line_that_holds_no_numbers_throws();
};

namespace {

constexpr std::array<std::string_view, 16> position_texts = {
    "01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "11", "12", "13", "14", "15", "16"};

Layout_Item item_at(int row, int column) { return {row, column, {}, {}}; }

} // namespace

void Test_Grid::cell_numbers_run_row_by_row_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    for (int cell = 0; cell < 16; ++cell) {
        const QString text = QString::fromLatin1(position_texts.at(static_cast<std::size_t>(cell)));
        QTest::addRow("cell %s", qPrintable(text)) << cell / 4 << cell % 4 << text;
    }
}

void Test_Grid::cell_numbers_run_row_by_row() {
    QFETCH(const int, row);
    QFETCH(const int, column);
    QFETCH(const QString, text);
    QCOMPARE(grid_position_number(item_at(row, column)), text);
    const Layout_Item item = position_to_layout_item(text.toStdString());
    QCOMPARE(item.row, row);
    QCOMPARE(item.column, column);
    QVERIFY(is_on_grid(item));
}

void Test_Grid::numbers_outside_1_to_16_are_not_on_the_grid_data() {
    QTest::addColumn<std::string>("text");
    for (const char* text : {"00", "17", "18", "20", "21", "99", "-1", "-4", "-9"}) {
        QTest::addRow("%s", text) << std::string(text);
    }
}

void Test_Grid::numbers_outside_1_to_16_are_not_on_the_grid() {
    QFETCH(const std::string, text);
    QVERIFY(!is_on_grid(position_to_layout_item(text)));
}

void Test_Grid::only_the_beginning_of_a_position_text_has_to_be_a_number() {
    const Layout_Item seven = position_to_layout_item("7x");
    QCOMPARE(std::pair(seven.row, seven.column), std::pair(1, 2));
    const Layout_Item blank_before = position_to_layout_item(" 5");
    QCOMPARE(std::pair(blank_before.row, blank_before.column), std::pair(1, 0));
    const Layout_Item one_zero_goes = position_to_layout_item("010");
    QCOMPARE(std::pair(one_zero_goes.row, one_zero_goes.column), std::pair(2, 1));
}

void Test_Grid::a_position_text_without_a_number_throws_data() {
    QTest::addColumn<std::string>("text");
    for (const char* text : {"", "0", "x1", "0x", "FF", "  ", "\r"}) {
        QTest::addRow("\"%s\"", text) << std::string(text);
    }
}

void Test_Grid::a_position_text_without_a_number_throws() {
    QFETCH(const std::string, text);
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, (void)position_to_layout_item(text));
}

void Test_Grid::the_default_layout_is_the_top_row_in_channel_order() {
    const std::vector<Layout_Item> layout = default_layout();
    QCOMPARE(layout.size(), 4U);
    const std::array<QColor, 4> colours = {Qt::yellow, Qt::green, Qt::blue, Qt::red};
    for (std::size_t i = 0; i < layout.size(); ++i) {
        QCOMPARE(layout[i].row, 0);
        QCOMPARE(layout[i].column, static_cast<int>(i));
        QCOMPARE(layout[i].name, "Channel " + QString::number(i + 1));
        QCOMPARE(layout[i].brush, QBrush(colours.at(i)));
        QCOMPARE(layout[i].brush.style(), Qt::SolidPattern);
    }
}

void Test_Grid::cells_give_their_channels_names_and_colours_back() {
    std::vector<Layout_Item> cells = {item_at(3, 3), item_at(0, 2), item_at(1, 1), item_at(2, 0)};
    cells[0].name = "of no account";
    cells[2].brush = QBrush(Qt::gray);
    const std::vector<Layout_Item> layout = layout_at(cells);
    QCOMPARE(layout.size(), 4U);
    const std::vector<Layout_Item> named = default_layout();
    for (std::size_t i = 0; i < layout.size(); ++i) {
        QCOMPARE(std::pair(layout[i].row, layout[i].column),
                 std::pair(cells[i].row, cells[i].column));
        QCOMPARE(layout[i].name, named[i].name);
        QCOMPARE(layout[i].brush, named[i].brush);
    }
}

void Test_Grid::the_command_of_the_default_layout_is_known() {
    QCOMPARE(grid_command(default_layout()), "//FF01B01FF02B02FF03B03FF04B04");
}

void Test_Grid::the_command_names_the_channels_in_order_wherever_they_stand() {
    const std::vector<Layout_Item> scattered =
        layout_at({item_at(3, 3), item_at(2, 1), item_at(0, 0), item_at(1, 3)});
    const QString command = "//FF01B16FF02B10FF03B01FF04B08";
    QCOMPARE(grid_command(scattered), command);
    // After a move the entries are in row order instead of channel order.
    std::vector<Layout_Item> by_row = scattered;
    std::ranges::sort(by_row, {}, &Layout_Item::row);
    QCOMPARE(by_row.front().name, "Channel 3");
    QCOMPARE(grid_command(by_row), command);
}

void Test_Grid::the_command_follows_the_colour_and_not_the_name() {
    std::vector<Layout_Item> layout = default_layout();
    std::swap(layout[0].brush, layout[3].brush);
    QCOMPARE(grid_command(layout), "//FF01B04FF02B02FF03B03FF04B01");
}

void Test_Grid::a_gray_tile_comes_out_as_digit_3() {
    std::vector<Layout_Item> layout = default_layout();
    layout[3].brush = QBrush(Qt::gray);
    QCOMPARE(grid_command(layout), "//FF01B01FF02B02FF03B03FF03B04");
    layout[2].brush = QBrush(Qt::gray);
    QCOMPARE(grid_command(layout), "//FF01B01FF02B02FF03B03FF03B04");
    // The two are in the order of the list.
    std::swap(layout[2], layout[3]);
    QCOMPARE(grid_command(layout), "//FF01B01FF02B02FF03B04FF03B03");
}

void Test_Grid::a_tile_of_another_colour_adds_nothing_to_the_command() {
    std::vector<Layout_Item> layout = default_layout();
    layout[1].brush = QBrush(Qt::magenta);
    QCOMPARE(grid_command(layout), "//FF01B01FF03B03FF04B04");
    layout[2].brush = QBrush(Qt::blue, Qt::Dense1Pattern);
    QCOMPARE(grid_command(layout), "//FF01B01FF04B04");
    QCOMPARE(grid_command({}), "//");
}

void Test_Grid::coordinates_are_row_and_column_with_a_blank_between() {
    QCOMPARE(coordinates_text(item_at(0, 0)), "0 0");
    QCOMPARE(coordinates_text(item_at(3, 1)), "3 1");
}

void Test_Grid::coordinates_are_cut_at_nine_characters() {
    QCOMPARE(coordinates_text(item_at(12345, 67890)), "12345 678");
    constexpr int lowest = std::numeric_limits<int>::min();
    QCOMPARE(coordinates_text(item_at(lowest, lowest)), "-21474836");
}

void Test_Grid::a_coordinates_line_is_read_behind_its_label_data() {
    QTest::addColumn<std::string>("text");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    const auto row = [](const char* name, const char* text, int line_row, int line_column) {
        QTest::addRow("%s", name) << std::string(text) << line_row << line_column;
    };
    row("plain", "Place: 1 2\n", 1, 2);
    row("end of text", "Place: 3 0", 3, 0);
    row("among other lines", "Other: 9 9\nPlace: 2 3\nNext: 1 1\n", 2, 3);
    row("first of two", "Place: 1 1\nPlace: 2 2\n", 1, 1);
    row("text behind the numbers", "Place: 1 2x\n", 1, 2);
    row("further fields", "Place: 1 2 3\n", 1, 2);
    row("no line at all", "", 0, 0);
    row("label without a value", "Place: \n", 0, 0);
    row("no column", "Place: 2\n", 2, 0);
    row("blank instead of the column", "Place: 2 \n", 2, 0);
    row("outside the grid", "Place: 7 -3\n", 7, -3);
}

void Test_Grid::a_coordinates_line_is_read_behind_its_label() {
    QFETCH(const std::string, text);
    QFETCH(const int, row);
    QFETCH(const int, column);
    const Layout_Item item = parse_coordinates("Place: ", text);
    QCOMPARE(item.row, row);
    QCOMPARE(item.column, column);
}

void Test_Grid::a_coordinates_line_that_holds_no_numbers_throws_data() {
    QTest::addColumn<std::string>("text");
    for (const char* text : {"Place: x 1\n", "Place: 1 x\n", "Place: one two\n",
                             "Place: 99999999999 1\n", "Place: 1 99999999999\n"}) {
        QTest::addRow("%s", text) << std::string(text);
    }
}

void Test_Grid::a_coordinates_line_that_holds_no_numbers_throws() {
    QFETCH(const std::string, text);
    QVERIFY_THROWS_EXCEPTION(std::logic_error, (void)parse_coordinates("Place: ", text));
}

QTEST_APPLESS_MAIN(Test_Grid)

#include "test_grid.moc"
