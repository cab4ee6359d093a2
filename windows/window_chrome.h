// SPDX-License-Identifier: MIT

#pragma once

#include "windows/window_widgets.h"

class QMainWindow;
class QPushButton;
class Switch_Session;

/// The window around the pages: its fixed appearance, the three page buttons, and the Refresh
/// button with its lock-out.
class Window_Chrome {
public:
    /// The button is disabled again after this time, in case something enabled it meanwhile.
    static constexpr int refresh_disable_ms = 50;
    /// From a click on Refresh to the next one that counts.
    static constexpr int refresh_lock_out_ms = 1700;

    /// The timers call the window's slots disable_refresh_button() and enable_refresh_button().
    Window_Chrome(QMainWindow& main_window, const Chrome_Widgets& chrome_widgets,
                  Switch_Session& switch_session);

    /// Fixed size, focus policy, title and window icon.
    void set_window_looks();
    void set_refresh_icon();

    void show_configuration_page();
    void show_mouse_speed_page();
    void show_layout_page();

    void refresh_clicked();
    void enable_refresh_button();
    void disable_refresh_button();

private:
    void show_page(int index, QPushButton& active);

    QMainWindow& window;
    Chrome_Widgets widgets;
    Switch_Session& session;
};
