// SPDX-License-Identifier: MIT

#include "pages/layout_page.h"

#include "app/event_log.h"
#include "app/message_box.h"
#include "link/channels.h"
#include "link/flag_guard.h"
#include "link/report_values.h"
#include "link/switch_session.h"
#include "pages/combo_box.h"
#include "pages/layout_tile.h"
#include "pages/model_traits.h"

#include <QColor>
#include <QComboBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QTableWidget>

#include <algorithm>
#include <exception>
#include <iostream>
#include <stdexcept>

namespace {

constexpr const char* inactive_mark = "\nINACTIVE";
/// Length of "Channel n"; what follows it in a tile's text is the inactive mark.
constexpr qsizetype name_length = 9;
/// One drop is two changes: the item is taken, and set.
constexpr int changes_per_drop = 2;
constexpr int change_count_limit = 16;
constexpr int four_ports_index = 2;
constexpr int selection_alpha = 128;

} // namespace

Layout_Page::Layout_Page(const Layout_Widgets& layout_widgets, Switch_Session& switch_session,
                         const Model_Traits& model_traits)
    : widgets(layout_widgets), session(switch_session), model(model_traits) {}

void Layout_Page::set_up_table() {
    widgets.tableWidget.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    widgets.tableWidget.verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    widgets.tableWidget.setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void Layout_Page::set_default_layout() {
    const Flag_Guard updating(grid_updating, true);
    for (const Layout_Item& item : default_layout()) {
        add_layout_item(item);
    }
}

void Layout_Page::cell_pressed(int row, int column) {
    update_selection_style(row, column);
    if (widgets.tableWidget.item(row, column) == nullptr) {
        widgets.tableWidget.setSelectionMode(QAbstractItemView::NoSelection);
        disable_grid_drag();
        return;
    }
    // Two tiles dragged together would cause more changes of cells than one drop does.
    widgets.tableWidget.clearSelection();
    select_grid_cell(row, column);
    enable_grid_drag();
    widgets.tableWidget.setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void Layout_Page::cell_changed(int row, int column) {
    if (grid_updating) {
        return;
    }
    grid_change_count += 1;
    if (grid_change_count == changes_per_drop) {
        deselect_grid_cell(row, column);
        read_layout_from_grid();
        if (new_layout.size() == channel_count) {
            current_layout = std::move(new_layout);
            new_layout.clear();
        }
        repaint_grid();
        grid_change_count = 0;
    }
    if (grid_change_count == change_count_limit) {
        grid_change_count = 0;
    }
}

void Layout_Page::submit() {
    if (is_connected_sum(neighbour_sum())) {
        show_information_box("Display topology has been updated", QMessageBox::Information);
    } else {
        show_information_box("Failed to update, connect all displays", QMessageBox::Warning);
    }
    // With all four ports active every tile has its own colour, and the command its true digits.
    QComboBox& active_ports = widgets.comboBox_Select_active_port;
    const int saved_active_port_index = active_ports.currentIndex();
    active_ports.setCurrentIndex(four_ports_index);
    QString command = get_grid_command();
    session.writer.write_unguarded(command);
    active_ports.setCurrentIndex(saved_active_port_index);
}

void Layout_Page::set_layout_from_report() {
    std::vector<Layout_Item> cells;
    for (const std::string_view key : {"04B", "03B", "02B", "01B"}) {
        cells.insert(cells.begin(), reported_item(key));
    }
    if (!std::ranges::all_of(cells, is_on_grid)) {
        write_log_line("Grid position outside the grid");
    }
    rebuild_layout(cells);
}

void Layout_Page::rebuild_layout(const std::vector<Layout_Item>& cells) {
    const Flag_Guard updating(grid_updating, true);
    if (std::ranges::all_of(cells, is_on_grid)) {
        widgets.tableWidget.clear();
        current_layout.clear();
        for (const Layout_Item& item : layout_at(cells)) {
            add_layout_item(item);
        }
    }
    // Also where the tiles stay: what brought the cells has drawn the marks for one port more.
    update_inactive_channels(widgets.comboBox_Select_active_port.currentIndex());
}

void Layout_Page::update_inactive_channels(std::int64_t index) {
    const Flag_Guard updating(grid_updating, true);
    std::ranges::sort(current_layout, {}, &Layout_Item::name);
    const std::int64_t active = index + 2;
    for (int i = 0; i < static_cast<int>(current_layout.size()); ++i) {
        Layout_Item& item = current_layout[static_cast<std::size_t>(i)];
        if (i >= active) {
            deactivate_layout_item(item);
        } else if (item.name == "Channel 3") {
            reactivate_layout_item(brush_channel_3, item);
        } else if (item.name == "Channel 4") {
            reactivate_layout_item(brush_channel_4, item);
        }
    }
}

void Layout_Page::set_active_ports(std::int64_t value) {
    set_combo_from_text(widgets.comboBox_Select_active_port, std::to_string(value));
    update_inactive_channels(value);
}

QString Layout_Page::get_channel_coordinates(const QString& name) const {
    for (const Layout_Item& item : current_layout) {
        if (model.logs_coordinate_lookup) {
            write_log_line((item.name + "       " + name).toStdString());
        }
        if (item.name == name) {
            return coordinates_text(item);
        }
    }
    return {};
}

void Layout_Page::enable_grid_drag() {
    widgets.tableWidget.setDragEnabled(true);
    widgets.tableWidget.setDragDropMode(QAbstractItemView::InternalMove);
    widgets.tableWidget.verticalHeader()->setSectionsMovable(true);
}

void Layout_Page::disable_grid_drag() {
    widgets.tableWidget.setDragEnabled(false);
    widgets.tableWidget.setDragDropMode(QAbstractItemView::NoDragDrop);
    widgets.tableWidget.verticalHeader()->setSectionsMovable(false);
}

void Layout_Page::update_selection_style(int row, int column) {
    const QTableWidgetItem* item = widgets.tableWidget.item(row, column);
    if (item == nullptr) {
        deselect_grid_cell(row, column);
        return;
    }
    const QColor colour = item->background().color();
    widgets.tableWidget.setStyleSheet(
        QString("QTableWidget::item:selected { background-color: rgba(%1, %2, %3, %4); border: 5px "
                "solid black;} QTableWidget {background-color: rgb(109, 109, 105); gridline-color: "
                "rgb(159, 159, 159);}")
            .arg(colour.red())
            .arg(colour.green())
            .arg(colour.blue())
            .arg(selection_alpha));
}

void Layout_Page::select_grid_cell(int row, int column) {
    widgets.tableWidget.selectionModel()->select(widgets.tableWidget.model()->index(row, column),
                                                 QItemSelectionModel::Select);
}

void Layout_Page::deselect_grid_cell(int row, int column) {
    widgets.tableWidget.selectionModel()->select(widgets.tableWidget.model()->index(row, column),
                                                 QItemSelectionModel::Deselect);
}

void Layout_Page::set_grid_cell(const Layout_Item& item, const QString& text) {
    auto* tile = new Layout_Tile; // the table takes it
    widgets.tableWidget.setItem(item.row, item.column, tile);
    tile->setData(Qt::BackgroundRole, item.brush);
    tile->setData(Qt::DisplayRole, text);
    tile->setData(Qt::TextAlignmentRole, static_cast<int>(Qt::AlignCenter));
    tile->setData(Qt::FontRole, QFont("Arial", 18, QFont::Bold));
}

void Layout_Page::add_layout_item(const Layout_Item& item) {
    current_layout.push_back(item);
    set_grid_cell(item, item.name);
}

void Layout_Page::read_layout_from_grid() {
    new_layout.clear();
    try {
        for (int row = 0; row < widgets.tableWidget.rowCount(); ++row) {
            for (int column = 0; column < widgets.tableWidget.columnCount(); ++column) {
                const QTableWidgetItem* tile = widgets.tableWidget.item(row, column);
                if (tile != nullptr) {
                    const QString name = QString::fromUtf8(tile->text().toUtf8().left(name_length));
                    new_layout.push_back({row, column, name, tile->background()});
                }
            }
        }
    } catch (const std::exception& failure) {
        write_log_line(failure.what());
        write_log_line("Topology setting error");
    }
}

void Layout_Page::repaint_grid() {
    if (grid_updating) {
        return;
    }
    const Flag_Guard updating(grid_updating, true);
    widgets.tableWidget.clear();
    for (const Layout_Item& item : current_layout) {
        const bool inactive = item.brush == QBrush(Qt::gray);
        set_grid_cell(item, inactive ? item.name + inactive_mark : item.name);
    }
}

void Layout_Page::reactivate_layout_item(const QBrush& brush, Layout_Item& item) {
    item.brush = brush;
    if (QTableWidgetItem* tile = widgets.tableWidget.item(item.row, item.column)) {
        tile->setBackground(brush);
        tile->setText(tile->text().remove(inactive_mark));
    }
}

void Layout_Page::deactivate_layout_item(Layout_Item& item) {
    if (item.brush != brush_channel_3 && item.brush != brush_channel_4) {
        return;
    }
    item.brush = QBrush(Qt::gray);
    if (QTableWidgetItem* tile = widgets.tableWidget.item(item.row, item.column)) {
        tile->setBackground(item.brush);
        tile->setText(tile->text() + inactive_mark);
    }
}

Layout_Item Layout_Page::reported_item(std::string_view key) const {
    const std::string position = get_layout_position(key, session.state.layout_buff);
    try {
        return position_to_layout_item(position);
    } catch (const std::invalid_argument& failure) {
        if (!model.forgives_bad_grid_position) {
            throw;
        }
        std::cout << "Invalid argument: " << failure.what() << std::endl;
        return {};
    }
}

int Layout_Page::neighbour_sum() const {
    int sum = 0;
    for (const Layout_Item& item : current_layout) {
        sum += count_neighbours(item, [this](int row, int column) {
            return widgets.tableWidget.item(row, column) != nullptr;
        });
    }
    return sum;
}
