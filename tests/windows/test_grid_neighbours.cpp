// SPDX-License-Identifier: MIT

#include "pages/grid.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <set>
#include <utility>
#include <vector>

using Cell = std::pair<int, int>; ///< row and column
using Shape = std::set<Cell>;
Q_DECLARE_METATYPE(Shape)

/// When four tiles count as connected.
class Test_Grid_Neighbours : public QObject {
    Q_OBJECT

private slots:
    void a_connected_shape_has_its_sum_in_every_orientation_and_place_data();
    void a_connected_shape_has_its_sum_in_every_orientation_and_place();
    void of_all_layouts_exactly_the_connected_ones_pass();
    void two_separate_pairs_have_a_sum_of_4_and_fail();
    void three_in_a_row_and_one_apart_have_a_sum_of_4_and_fail();
    void tiles_that_touch_at_a_corner_do_not_touch();
    void row_ends_are_no_neighbours_of_the_next_row();
    void nothing_beyond_the_edge_is_asked_for();
    void two_tiles_on_one_cell_count_what_stands_beside_that_cell();
    void only_the_sums_6_and_8_are_connected();
};

namespace {

constexpr int rows = 4;
constexpr int columns = 4;

/// The sum of the neighbour counts of tiles, with just their own cells occupied.
int neighbour_sum(const std::vector<Cell>& tiles) {
    int sum = 0;
    for (const auto& [tile_row, tile_column] : tiles) {
        sum += count_neighbours({tile_row, tile_column, {}, {}}, [&](int row, int column) {
            return std::ranges::find(tiles, Cell(row, column)) != tiles.end();
        });
    }
    return sum;
}

int neighbour_sum(const Shape& shape) {
    return neighbour_sum(std::vector<Cell>(shape.begin(), shape.end()));
}

/// The shape moved to the top left corner.
Shape in_corner(const Shape& shape) {
    int top = rows;
    int left = columns;
    for (const auto& [row, column] : shape) {
        top = std::min(top, row);
        left = std::min(left, column);
    }
    Shape moved;
    for (const auto& [row, column] : shape) {
        moved.emplace(row - top, column - left);
    }
    return moved;
}

/// Every rotated and mirrored form of a shape.
std::set<Shape> orientations(const Shape& shape) {
    std::set<Shape> all;
    Shape turned = shape;
    for (int quarter = 0; quarter < 4; ++quarter) {
        Shape next;
        Shape mirrored;
        for (const auto& [row, column] : turned) {
            next.emplace(column, -row);
            mirrored.emplace(row, -column);
        }
        all.insert(in_corner(turned));
        all.insert(in_corner(mirrored));
        turned = next;
    }
    return all;
}

/// Every place on the grid that a shape fits in.
std::vector<Shape> placements(const Shape& shape) {
    std::vector<Shape> all;
    for (int down = 0; down < rows; ++down) {
        for (int right = 0; right < columns; ++right) {
            Shape placed;
            for (const auto& [row, column] : shape) {
                placed.emplace(row + down, column + right);
            }
            if (std::ranges::all_of(placed, [](const Cell& cell) {
                    return cell.first < rows && cell.second < columns;
                })) {
                all.push_back(placed);
            }
        }
    }
    return all;
}

/// Whether all tiles can be reached from one of them over common edges.
bool all_within_reach(const Shape& shape) {
    std::vector<Cell> reached = {*shape.begin()};
    for (std::size_t next = 0; next < reached.size(); ++next) {
        const auto [row, column] = reached[next];
        for (const Cell& beside : {Cell(row - 1, column), Cell(row + 1, column),
                                   Cell(row, column - 1), Cell(row, column + 1)}) {
            if (shape.contains(beside) && std::ranges::find(reached, beside) == reached.end()) {
                reached.push_back(beside);
            }
        }
    }
    return reached.size() == shape.size();
}

/// All choices of four cells of the grid.
std::vector<Shape> all_layouts() {
    std::vector<Shape> all;
    std::array<int, 4> c = {};
    for (c[0] = 0; c[0] < 16; ++c[0]) {
        for (c[1] = c[0] + 1; c[1] < 16; ++c[1]) {
            for (c[2] = c[1] + 1; c[2] < 16; ++c[2]) {
                for (c[3] = c[2] + 1; c[3] < 16; ++c[3]) {
                    Shape layout;
                    for (const int cell : c) {
                        layout.emplace(cell / columns, cell % columns);
                    }
                    all.push_back(layout);
                }
            }
        }
    }
    return all;
}

} // namespace

void Test_Grid_Neighbours::a_connected_shape_has_its_sum_in_every_orientation_and_place_data() {
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<int>("places");
    QTest::addColumn<int>("sum");
    QTest::addRow("row or column") << Shape{{0, 0}, {0, 1}, {0, 2}, {0, 3}} << 8 << 6;
    QTest::addRow("2 by 2 block") << Shape{{0, 0}, {0, 1}, {1, 0}, {1, 1}} << 9 << 8;
    QTest::addRow("T") << Shape{{0, 0}, {0, 1}, {0, 2}, {1, 1}} << 24 << 6;
    QTest::addRow("S and Z") << Shape{{0, 1}, {0, 2}, {1, 0}, {1, 1}} << 24 << 6;
    QTest::addRow("L and J") << Shape{{0, 0}, {1, 0}, {2, 0}, {2, 1}} << 48 << 6;
}

void Test_Grid_Neighbours::a_connected_shape_has_its_sum_in_every_orientation_and_place() {
    QFETCH(const Shape, shape);
    QFETCH(const int, places);
    QFETCH(const int, sum);
    int seen = 0;
    for (const Shape& orientation : orientations(shape)) {
        for (const Shape& placed : placements(orientation)) {
            QCOMPARE(neighbour_sum(placed), sum);
            QVERIFY(is_connected_sum(neighbour_sum(placed)));
            ++seen;
        }
    }
    QCOMPARE(seen, places);
}

void Test_Grid_Neighbours::of_all_layouts_exactly_the_connected_ones_pass() {
    int connected = 0;
    const std::vector<Shape> layouts = all_layouts();
    QCOMPARE(layouts.size(), 1820U);
    for (const Shape& layout : layouts) {
        QCOMPARE(is_connected_sum(neighbour_sum(layout)), all_within_reach(layout));
        connected += all_within_reach(layout) ? 1 : 0;
    }
    QCOMPARE(connected, 8 + 9 + 24 + 24 + 48);
}

void Test_Grid_Neighbours::two_separate_pairs_have_a_sum_of_4_and_fail() {
    const Shape pairs = {{0, 0}, {0, 1}, {2, 2}, {3, 2}};
    QCOMPARE(neighbour_sum(pairs), 4);
    QVERIFY(!is_connected_sum(neighbour_sum(pairs)));
}

void Test_Grid_Neighbours::three_in_a_row_and_one_apart_have_a_sum_of_4_and_fail() {
    const Shape three_and_one = {{0, 0}, {0, 1}, {0, 2}, {2, 0}};
    QCOMPARE(neighbour_sum(three_and_one), 4);
    QVERIFY(!is_connected_sum(neighbour_sum(three_and_one)));
}

void Test_Grid_Neighbours::tiles_that_touch_at_a_corner_do_not_touch() {
    const Shape diagonal = {{0, 0}, {1, 1}, {2, 2}, {3, 3}};
    QCOMPARE(neighbour_sum(diagonal), 0);
    const Shape two_pairs_by_a_corner = {{0, 0}, {0, 1}, {1, 2}, {1, 3}};
    QCOMPARE(neighbour_sum(two_pairs_by_a_corner), 4);
}

void Test_Grid_Neighbours::row_ends_are_no_neighbours_of_the_next_row() {
    QCOMPARE(neighbour_sum(Shape{{0, 3}, {1, 0}, {1, 3}, {2, 0}}), 4);
    QCOMPARE(neighbour_sum(Shape{{0, 0}, {0, 3}, {3, 0}, {3, 3}}), 0);
}

void Test_Grid_Neighbours::nothing_beyond_the_edge_is_asked_for() {
    std::vector<Layout_Item> asked;
    for (int cell = 0; cell < 16; ++cell) {
        const int count =
            count_neighbours({cell / columns, cell % columns, {}, {}}, [&](int row, int column) {
                asked.push_back({row, column, {}, {}});
                return true;
            });
        const bool is_end_row = cell / 4 == 0 || cell / 4 == 3;
        const bool is_end_column = cell % 4 == 0 || cell % 4 == 3;
        QCOMPARE(count, 4 - (is_end_row ? 1 : 0) - (is_end_column ? 1 : 0));
    }
    QCOMPARE(asked.size(), 48U);
    QVERIFY(std::ranges::all_of(asked, is_on_grid));
}

void Test_Grid_Neighbours::two_tiles_on_one_cell_count_what_stands_beside_that_cell() {
    // The table shows three tiles in a row; the one in the middle is two channels.
    QCOMPARE(neighbour_sum(std::vector<Cell>{{0, 0}, {0, 1}, {0, 1}, {0, 2}}), 6);
    QCOMPARE(neighbour_sum(std::vector<Cell>{{0, 0}, {0, 0}, {0, 1}, {0, 2}}), 5);
    QCOMPARE(neighbour_sum(std::vector<Cell>{{0, 0}, {0, 0}, {0, 0}, {0, 0}}), 0);
}

void Test_Grid_Neighbours::only_the_sums_6_and_8_are_connected() {
    for (int sum = 0; sum <= 16; ++sum) {
        QCOMPARE(is_connected_sum(sum), sum == 6 || sum == 8);
    }
}

QTEST_APPLESS_MAIN(Test_Grid_Neighbours)

#include "test_grid_neighbours.moc"
