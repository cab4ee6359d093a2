// SPDX-License-Identifier: MIT

#include "pages/grid.h"

#include "link/channels.h"

#include <array>

namespace {

constexpr qsizetype coordinates_limit = 10 - 1;

const std::array<QBrush, channel_count>& channel_brushes() {
    static const std::array<QBrush, channel_count> brushes{brush_channel_1, brush_channel_2,
                                                           brush_channel_3, brush_channel_4};
    return brushes;
}

/// The channel digit of a colour in the layout command; 0 for a colour of no channel.
int command_digit(const QBrush& brush) {
    const auto& brushes = channel_brushes();
    for (std::size_t i = 0; i < brushes.size(); ++i) {
        if (brush == brushes[i]) {
            return static_cast<int>(i) + 1;
        }
    }
    return brush == QBrush(Qt::gray) ? 3 : 0;
}

} // namespace

bool is_on_grid(const Layout_Item& item) {
    return item.row >= 0 && item.row < grid_rows && item.column >= 0 && item.column < grid_columns;
}

std::vector<Layout_Item> default_layout() {
    std::vector<Layout_Item> cells(channel_brushes().size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i].column = static_cast<int>(i);
    }
    return layout_at(cells);
}

std::vector<Layout_Item> layout_at(const std::vector<Layout_Item>& cells) {
    std::vector<Layout_Item> layout = cells;
    for (std::size_t i = 0; i < layout.size(); ++i) {
        layout[i].name = "Channel " + QString::number(i + 1);
        layout[i].brush = channel_brushes().at(i);
    }
    return layout;
}

Layout_Item position_to_layout_item(std::string text) {
    if (!text.empty() && text.front() == '0') {
        text.erase(0, 1);
    }
    const int number = std::stoi(text);
    Layout_Item item;
    item.row = (number - 1) / grid_columns;
    item.column = (number - 1) % grid_columns;
    return item;
}

QString grid_position_number(const Layout_Item& item) {
    const int number = item.row * grid_columns + item.column + 1;
    return QString::number(number).rightJustified(2, '0');
}

QString grid_command(const std::vector<Layout_Item>& layout) {
    std::array<QString, channel_count> parts;
    for (const Layout_Item& item : layout) {
        const int digit = command_digit(item.brush);
        if (digit > 0) {
            parts[static_cast<std::size_t>(digit - 1)] +=
                "FF0" + QString::number(digit) + 'B' + grid_position_number(item);
        }
    }
    return "//" + parts[0] + parts[1] + parts[2] + parts[3];
}

int count_neighbours(const Layout_Item& item,
                     const std::function<bool(int row, int column)>& is_occupied) {
    int count = 0;
    for (const auto& [down, right] : {std::pair(-1, 0), {1, 0}, {0, -1}, {0, 1}}) {
        Layout_Item beside;
        beside.row = item.row + down;
        beside.column = item.column + right;
        if (is_on_grid(beside) && is_occupied(beside.row, beside.column)) {
            ++count;
        }
    }
    return count;
}

bool is_connected_sum(int neighbour_sum) { return neighbour_sum == 6 || neighbour_sum == 8; }

QString coordinates_text(const Layout_Item& item) {
    return QString("%1 %2").arg(item.row).arg(item.column).left(coordinates_limit);
}
