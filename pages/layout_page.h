// SPDX-License-Identifier: MIT

#pragma once

#include "pages/grid.h"
#include "pages/page_widgets.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Switch_Session;
struct Model_Traits;

/// The page on which the four displays are dragged into place. A layout counts as the user dragged
/// it until the switch has reported its own view.
class Layout_Page {
public:
    Layout_Page(const Layout_Widgets& layout_widgets, Switch_Session& switch_session,
                const Model_Traits& model_traits);

    /// Header and edit modes of the table.
    void set_up_table();
    void set_default_layout();

    /// Pressing a tile shows the selection in the tile's own colour, half transparent, and arms
    /// dragging; pressing an empty cell disarms it.
    void cell_pressed(int row, int column);
    /// One drop gives two changes of cells, the taking of the item and its setting. A drop that
    /// leaves four tiles is the new layout; any other is taken back.
    void cell_changed(int row, int column);
    /// Warns if the displays are not connected, and sends the layout all the same, with the port
    /// limit at 4 for the time of it.
    void submit();

    /// Puts the channels where the switch's layout text says. A position outside the grid leaves
    /// the tiles where they are and one entry in the event log.
    /// @throws std::out_of_range or std::invalid_argument if a position is missing.
    void set_layout_from_report();
    /// Puts channels 1 to 4 at the cells of four records. Cells outside the grid leave the tiles
    /// where they are. Either way the marks of inactive channels then follow the port limit.
    void rebuild_layout(const std::vector<Layout_Item>& cells);

    /// Marks the channels beyond the port limit gray.
    /// @param index the port limit as an index of comboBox_Select_active_port (limit minus 2).
    void update_inactive_channels(std::int64_t index);
    /// Takes a port limit from a report or a file. The marks are drawn for one port more than the
    /// combo box shows; rebuild_layout(), which follows, settles them.
    /// @param value port limit minus 1; its type is wide enough for any number in a text.
    void set_active_ports(std::int64_t value);

    [[nodiscard]] QString get_grid_command() const { return grid_command(current_layout); }
    /// "row column" of a channel; empty if no tile has the name.
    [[nodiscard]] QString get_channel_coordinates(const QString& name) const;

    void disable_grid_drag();

private:
    void enable_grid_drag();
    void update_selection_style(int row, int column);
    void select_grid_cell(int row, int column);
    void deselect_grid_cell(int row, int column);
    void set_grid_cell(const Layout_Item& item, const QString& text);
    void add_layout_item(const Layout_Item& item);
    void read_layout_from_grid();
    void repaint_grid();
    void reactivate_layout_item(const QBrush& brush, Layout_Item& item);
    void deactivate_layout_item(Layout_Item& item);
    [[nodiscard]] Layout_Item reported_item(std::string_view key) const;
    [[nodiscard]] int neighbour_sum() const;

    Layout_Widgets widgets;
    Switch_Session& session;
    const Model_Traits& model;

    std::vector<Layout_Item> current_layout;
    std::vector<Layout_Item> new_layout;
    /// The program itself is writing cells.
    bool grid_updating = true;
    /// Changes of cells by the user since the last drop was dealt with.
    int grid_change_count = 0;
};
