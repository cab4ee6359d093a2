#pragma once

#include "tests/fuzz/widget_memory.h"
#include "windows/main_window_controller.h"

#include <QByteArrayList>
#include <QMainWindow>

#include <memory>
#include <optional>

/// A main window of any model, made of the product's form and body, on a link that only records.
/// One window serves all inputs of a process: between two of them its body is made anew and its
/// widgets get back what they showed, which is compared with a new window's from time to time.
class Fuzz_Window : public QMainWindow {
    Q_OBJECT

public:
    enum class Road { serial, network };

    explicit Fuzz_Window(const Model_Traits& switch_model);

    /// The window as it is when its link has just been opened and the start commands are sent.
    void start_anew(Road road);

    /// A chunk comes in on the serial port.
    void receive(const QByteArray& chunk);
    /// The text of a datagram comes in.
    void receive_datagram(const QByteArray& chunk);

    [[nodiscard]] Main_Window_Controller& body() { return *the_body; }
    [[nodiscard]] const Model_Traits& model() const { return the_model; }
    /// What has been written to the link since the start, write by write.
    [[nodiscard]] QByteArrayList& sent() { return all_sent; }

public slots:
    // What the timers call.
    void get_data_from_TQL_by_serial_port();
    void set_current_layout_from_buff();
    void scroll_Cursor_to_the_end();
    void load_second_part_of_settings();
    void refresh_UI();
    void enable_refresh_button();
    void disable_refresh_button();

private slots:
    // What moves when the program writes into the widgets.
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
    void make_body();
    void open_link();
    void check_reset();

    const Model_Traits& the_model;
    Road road = Road::serial;
    QByteArrayList all_sent;
    std::shared_ptr<void> form;
    std::optional<Window_Widgets> widgets;
    std::optional<Widget_Memory> memory;
    std::optional<Main_Window_Controller> the_body;
    QByteArrayList first_description;
    int starts = 0;
};

/// The window of the model that an input's first byte names: Lite, Plus, Pro for '0', '1', '2'.
/// Each is made once in a process.
Fuzz_Window& window_of_model(unsigned char first_byte);
