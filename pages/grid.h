// SPDX-License-Identifier: MIT

#pragma once

#include <QBrush>
#include <QString>

#include <functional>
#include <string>
#include <vector>

/// The 4 by 4 grid on which the four displays are laid out, without any widget. The switch numbers
/// the cells row by row, 01 at the top left, 16 at the bottom right.

inline constexpr int grid_rows = 4;
inline constexpr int grid_columns = 4;

/// The channels' colours. Colour is the only thing that ties a tile to a channel's digit in the
/// layout command.
inline const QBrush brush_channel_1(Qt::yellow);
inline const QBrush brush_channel_2(Qt::green);
inline const QBrush brush_channel_3(Qt::blue);
inline const QBrush brush_channel_4(Qt::red);

/// The place of one channel's display.
struct Layout_Item {
    /// 0 at the top.
    int row = 0;
    /// 0 at the left.
    int column = 0;
    /// "Channel 1" to "Channel 4", never with the inactive mark.
    QString name;
    /// The tile's colour; gray while the channel is inactive.
    QBrush brush;
};

/// Whether a record's cell lies on the grid.
bool is_on_grid(const Layout_Item& item);

/// The four channels side by side in the top row.
std::vector<Layout_Item> default_layout();

/// The four channels in order, each with its name and colour, at the cells of four records.
std::vector<Layout_Item> layout_at(const std::vector<Layout_Item>& cells);

/// A record whose row and column are those of a cell number, "01" to "16". Other numbers give a
/// cell that is not on the grid.
/// @throws std::invalid_argument on text without digits, std::out_of_range on a number beyond int.
Layout_Item position_to_layout_item(std::string text);

/// The cell number of a record, two digits.
QString grid_position_number(const Layout_Item& item);

/// "//FF01B..FF02B..FF03B..FF04B.." for a layout. The digit follows the colour, and gray gives the
/// digit 3 whichever channel is gray: the switch learns of inactive channels that way.
QString grid_command(const std::vector<Layout_Item>& layout);

/// How many of the four cells beside an item (not diagonally) are occupied; cells beyond the edge
/// count as empty.
int count_neighbours(const Layout_Item& item,
                     const std::function<bool(int row, int column)>& is_occupied);

/// Whether the neighbour counts of all four tiles, added up, mean that every tile touches the
/// others: 6 is any connected shape without a closed square, 8 the 2 by 2 block. No other sum is
/// connected.
bool is_connected_sum(int neighbour_sum);

/// "row column" of an item, cut at nine characters.
QString coordinates_text(const Layout_Item& item);
