// SPDX-License-Identifier: MIT

#pragma once

#include "windows/main_window_controller.h"

#include <QMainWindow>

#include <memory>
#include <optional>

struct Model_Traits;

/// A main window of any model with the product's form and controller, which does not connect to
/// anything itself. Its slots have the names by which widgets and timers find them in the product's
/// windows.
class Bare_Window : public QMainWindow {
    Q_OBJECT

public:
    /// Whether timers call their slots as in the product, or do nothing, so that a test calls the
    /// slots itself.
    enum class Timers { run, ended_by_test };

    Bare_Window(const Model_Traits& model_traits, Timers timers);
    ~Bare_Window() override;

    [[nodiscard]] Main_Window_Controller& controller() { return *the_controller; }
    [[nodiscard]] const Main_Window_Controller& controller() const { return *the_controller; }
    [[nodiscard]] const Model_Traits& model() const { return traits; }

protected:
    /// Replaces the controller by a new one on the same widgets.
    void make_controller();

public slots:
    // Called by devices and timers.
    void serialRecieve();
    void get_data_from_TQL_by_serial_port();
    void set_current_layout_from_buff();
    void scroll_Cursor_to_the_end();
    void load_second_part_of_settings();
    void refresh_UI();
    void enable_refresh_button();
    void disable_refresh_button();

private slots:
    // Called when the program writes into the widgets.
    void on_comboBox_KM_Control_currentIndexChanged();
    void on_comboBox_USB_Control_currentIndexChanged();
    void on_comboBox_Select_Display_Mode_currentIndexChanged();
    void on_comboBox_Select_active_port_currentIndexChanged();
    void on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged();
    void on_comboBox_number_of_setting_currentIndexChanged(int index);
    void on_tableWidget_cellChanged(int row, int column);
    void on_tableWidget_cellPressed(int row, int column);

private:
    template <class Form>
    void build();

    const Model_Traits& traits;
    const bool timers_run;
    std::shared_ptr<void> form;
    std::optional<Window_Widgets> widgets;
    std::optional<Main_Window_Controller> the_controller;
};
