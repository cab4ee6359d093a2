// SPDX-License-Identifier: MIT

#include "windows/window_chrome.h"

#include "app/dialog_looks.h"
#include "link/switch_session.h"

#include <QIcon>
#include <QMainWindow>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

namespace {

constexpr QSize window_size(1305, 693);
constexpr QSize refresh_icon_size(25, 25);

constexpr const char* active_button_style =
    "background-color: rgb(77, 156, 238); border: 2.5px solid rgb(189, 189, 189); border-radius: "
    "10px";
constexpr const char* idle_button_style =
    "QPushButton {background-color: rgb(189, 189, 189);border: 2.5px solid rgb(77, 156, 238);"
    "border-radius: 10px;}QPushButton:hover {background-color: rgb(77, 156, 238);border-radius: "
    "10px;}QPushButton:pressed {background-color: rgb(189, 189, 189);border: 2.5px solid rgb(77, "
    "156, 238);border-radius: 10px;}";

} // namespace

Window_Chrome::Window_Chrome(QMainWindow& main_window, const Chrome_Widgets& chrome_widgets,
                             Switch_Session& switch_session)
    : window(main_window), widgets(chrome_widgets), session(switch_session) {}

void Window_Chrome::set_window_looks() {
    window.setFixedSize(window_size);
    window.setFocusPolicy(Qt::StrongFocus);
    window.setWindowTitle("Halvern");
    window.setWindowIcon(window_icon());
}

void Window_Chrome::set_refresh_icon() {
    widgets.pushButton_Refresh.setIconSize(refresh_icon_size);
    widgets.pushButton_Refresh.setIcon(QIcon(":/img/logos/refresh.png"));
}

void Window_Chrome::show_configuration_page() { show_page(0, widgets.ConfigurationBtn); }

void Window_Chrome::show_mouse_speed_page() {
    show_page(1, widgets.pushButton_Mouse_Speed_Settings);
}

void Window_Chrome::show_layout_page() { show_page(2, widgets.TopologyAndDisplayBtn); }

void Window_Chrome::show_page(int index, QPushButton& active) {
    for (QPushButton* button : {&widgets.ConfigurationBtn, &widgets.pushButton_Mouse_Speed_Settings,
                                &widgets.TopologyAndDisplayBtn}) {
        button->setStyleSheet(button == &active ? active_button_style : idle_button_style);
    }
    widgets.stackedWidget.setCurrentIndex(index);
}

void Window_Chrome::refresh_clicked() {
    QTimer::singleShot(refresh_disable_ms, Qt::PreciseTimer, &window,
                       SLOT(disable_refresh_button()));
    widgets.pushButton_Refresh.setEnabled(false);
    if (session.state.refresh_enabled) {
        session.state.refresh_enabled = false;
        session.refresh_UI();
    }
    QTimer::singleShot(refresh_lock_out_ms, Qt::PreciseTimer, &window,
                       SLOT(enable_refresh_button()));
}

void Window_Chrome::enable_refresh_button() {
    session.state.refresh_enabled = true;
    widgets.pushButton_Refresh.setEnabled(true);
}

void Window_Chrome::disable_refresh_button() { widgets.pushButton_Refresh.setEnabled(false); }
