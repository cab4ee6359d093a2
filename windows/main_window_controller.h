// SPDX-License-Identifier: MIT

#pragma once

#include "link/session_view.h"
#include "link/switch_session.h"
#include "pages/audio_panel.h"
#include "pages/configuration_page.h"
#include "pages/layout_page.h"
#include "pages/left_menu.h"
#include "pages/mouse_speed_page.h"
#include "pages/report_reader.h"
#include "pages/settings_import_export.h"
#include "pages/terminal_view.h"
#include "windows/window_chrome.h"
#include "windows/window_widgets.h"

#include <optional>
#include <string>

class QMainWindow;
struct Model_Traits;

/// The common part of all three main windows: the session with a switch, and the pages that it
/// fills. A window has one controller as a member, and its slots call the parts of the controller.
/// It derives from none of these classes.
class Main_Window_Controller : private Session_View {
public:
    /// @param widgets those of the window's form, which must be built already.
    Main_Window_Controller(QMainWindow& main_window, const Model_Traits& model_traits,
                           const Window_Widgets& widgets);

    /// Sets up the window as it is before any link: its appearance, the first page, the default
    /// layout, and disabled controls where they need a switch.
    void set_up_window();
    /// Fills the port list, opens its first port and asks the switch for everything.
    void connect_first_port();
    /// At the end of a window: closes the link of the chosen method, then the event log.
    void close();

    void set_current_layout_from_buff();

private:
    QMainWindow& window;
    const Model_Traits& model;

public:
    Switch_Session session;
    Left_Menu menu;
    Terminal_View terminal;
    Mouse_Speed_Page mouse_speed;
    Layout_Page layout;
    Configuration_Page configuration;
    /// Only on a model with audio.
    std::optional<Audio_Panel> audio;
    Report_Reader reports;
    Window_Chrome chrome;
    Settings_Import_Export settings;

private:
    // Calls from the session.
    void switch_answered() override;
    void show_reply(const QString& chunk) override { terminal.append(chunk); }
    void apply_information_report() override { reports.apply_information_report(); }
    void apply_status_report() override { reports.apply_status_report(); }
    void set_layout_from_report() override { layout.set_layout_from_report(); }
    void parse_both_notice(const std::string& text) override { reports.parse_both_notice(text); }
    void parse_km_notice(const std::string& text) override { reports.parse_km_notice(text); }
    void parse_usb_notice(const std::string& text) override { reports.parse_usb_notice(text); }
    void apply_audio_reply(const std::string& text) override { reports.apply_audio_reply(text); }
    void report_failure(const std::string& text) override;
    void set_disconnected_indicator() override { menu.set_disconnected_indicator(); }
    [[nodiscard]] bool shows_connected() const override { return menu.shows_connected(); }
    void disable_controls() override;
    void clear_terminal() override { terminal.clear(); }
    void remove_custom_setting_items() override { mouse_speed.remove_custom_setting_items(); }
    void show_adapter(const QString& address) override { menu.show_adapter(address); }
    void end_process(const QString& reason) override;
};
