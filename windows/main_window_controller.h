#pragma once

#include "link/command_writer.h"
#include "link/link_transport.h"
#include "link/reply_dispatcher.h"
#include "link/session_state.h"
#include "pages/audio_panel.h"
#include "pages/configuration_page.h"
#include "pages/layout_page.h"
#include "pages/left_menu.h"
#include "pages/model_traits.h"
#include "pages/mouse_speed_page.h"
#include "pages/report_reader.h"
#include "pages/settings_import_export.h"
#include "pages/terminal_view.h"
#include "windows/connection.h"
#include "windows/window_chrome.h"
#include "windows/window_widgets.h"

#include <QMainWindow>

#include <functional>
#include <optional>
#include <string>

/// What all three main windows are made of: the link, and the pages that it fills. A window holds
/// one body by value and hands its slots to the parts; it derives from nothing of this.
class Main_Window_Controller : private Reply_Handler {
public:
    /// @param widgets those of the window's form, which must stand already.
    /// @param is_network_chosen whether commands go to the network link.
    Main_Window_Controller(QMainWindow& window, const Model_Traits& switch_model,
                           const Window_Widgets& widgets, std::function<bool()> is_network_chosen);

    /// A chunk has come in on the serial port.
    void serialRecieve();
    /// Datagrams have come in on the socket.
    void onReadyRead();
    void set_current_layout_from_buff();

    const Model_Traits& model;
    Session_State state;
    Link_Transport devices;
    Command_Writer writer;
    Reply_Dispatcher replies;
    Left_Menu menu;
    Terminal_View terminal;
    Mouse_Speed_Page mouse_speed;
    Layout_Page layout;
    Configuration_Page configuration;
    /// Only on a model with audio.
    std::optional<Audio_Panel> audio;
    Report_Reader reports;
    Connection connection;
    Window_Chrome frame;
    Settings_Import_Export settings;

private:
    void switch_answered() override;
    void show_reply(const QString& chunk) override { terminal.append(chunk); }
    void apply_information_report() override { reports.apply_information_report(); }
    void apply_status_report() override { reports.apply_status_report(); }
    void set_layout_from_report() override { layout.set_layout_from_report(); }
    void parse_both_notice(const std::string& text) override;
    void parse_km_notice(const std::string& text) override { reports.parse_km_notice(text); }
    void parse_usb_notice(const std::string& text) override { reports.parse_usb_notice(text); }
    void apply_audio_reply(const std::string& text) override;
};
