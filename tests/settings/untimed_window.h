#pragma once

#include "sim/simulated_switch.h"
#include "windows/main_window_controller.h"

#include <QMainWindow>

#include <memory>

namespace Ui {
class Corvane_LITE_UI;
}

/// A Lite window on its own switch, made of the product's form and body, whose waits a test ends
/// itself: the timers of a report and of a load's second part find slots that do nothing, and the
/// test calls what they would have called. For tests that go through hundreds of units.
class Untimed_Window : public QMainWindow {
    Q_OBJECT

public:
    Untimed_Window();
    ~Untimed_Window() override;

    /// Asks the switch for everything and applies the report as soon as it is complete.
    [[nodiscard]] bool read_unit();

    /// Everything sent until now has been carried out by the switch, and answered.
    [[nodiscard]] bool wait_until_obeyed();

    QWidget& widget(const QString& name) const;

    Simulated_Switch device;

private slots:
    void serialRecieve();
    void get_data_from_TQL_by_serial_port() {}
    void set_current_layout_from_buff() {}
    void scroll_Cursor_to_the_end() {}
    void load_second_part_of_settings() {}
    void refresh_UI() {}
    // What a user's change would send; nothing may come this way while a file or a report is
    // applied.
    void on_comboBox_KM_Control_currentIndexChanged();
    void on_comboBox_USB_Control_currentIndexChanged();
    void on_comboBox_Select_Display_Mode_currentIndexChanged();
    void on_comboBox_Select_active_port_currentIndexChanged();
    void on_comboBox_Enable_or_Disable_Cursor_Roll_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_1_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_2_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_3_currentIndexChanged();
    void on_comboBox_mouse_movement_resolution_setting_4_currentIndexChanged();

private:
    std::unique_ptr<Ui::Corvane_LITE_UI> ui;

public:
    Main_Window_Controller body;
};
