// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/fast_network.h"
#include "tests/support/modal_robot.h"
#include "tests/support/window_fixture.h"

#include <QByteArrayList>

// The paths through the connection wizard's dialogs.
Modal_Expectation choose_network();
Modal_Expectation choose_serial();
/// @param index in the list of those found.
Modal_Expectation choose_adapter(int index = 0);
Modal_Expectation log_in(const QString& username = "admin", const QString& password = "admin");
Modal_Expectation connect_adapter();

/// The dialogs of the network path, in order.
QStringList network_path();
/// The title bar's close button ends the dialog of this class.
Modal_Expectation close_dialog(const QString& class_name);
/// The Escape key ends the dialog of this class.
Modal_Expectation escape_dialog(const QString& class_name);

/// A Plus or Pro window, an adapter at 127.0.0.2 with a switch behind its data port, and another
/// switch on a serial line. All run in the test's own thread, so that searches take no real time.
class Network_Fixture : public Window_Fixture {
public:
    explicit Network_Fixture(Switch_Model model);
    ~Network_Fixture() override;

    /// The robot will answer the first dialogs of the network path, by default all.
    void expect_network_path(int dialogs = 4);

    /// The robot will leave the login with Escape, and confirm the boxes of the settings being
    /// read: the login has an empty name and is refused; the settings are read twice.
    void expect_login_without_credentials();
    /// The robot will give the adapter this address in the IP settings, and connect.
    void expect_new_address(const QString& address);

    /// Opens the window over the network path and waits until the first report has filled the
    /// pages. Then clears what the switch has received.
    [[nodiscard]] bool open_network();
    /// As open_network(), but the switch does not answer; waits until it has received the
    /// questions.
    [[nodiscard]] bool open_silent();
    /// Opens the window over the serial path and waits until the pages are filled.
    [[nodiscard]] bool open_serial();
    /// Presses the button that starts the wizard, and returns when it has ended.
    void run_wizard() { button("pushButton_Connection_Settings").click(); }

    void silence_switch() { adapter.set_switch({}); }
    void wake_switch();

    /// The questions of the model at every connection and refresh.
    [[nodiscard]] QByteArrayList start_commands() const;
    /// All answers of the adapter's switch to them, in one text.
    QByteArray report();

    /// Waits for this number of commands at the adapter's switch, and a little longer for unwanted
    /// ones; then clears them.
    QByteArrayList take_commands(qsizetype count);

    /// Chooses another KM channel and waits for its command at the adapter's switch, or at the one
    /// on the serial line.
    [[nodiscard]] bool change_reaches_adapter();
    [[nodiscard]] bool change_reaches_serial_line();

    /// Processes events for a little while, in which everything sent arrives.
    static void settle(int milliseconds = 100);

    /// Sockets of this network that are connected to an adapter's data port.
    static int socket_count();

    /// The visible link widgets of the left menu.
    [[nodiscard]] QStringList visible_link_widgets() const;
    static QStringList network_widgets();
    static QStringList serial_widgets();

    Modal_Robot robot;
    Fast_Network network;
    Simulated_Adapter& adapter;
    Switch_Logic unit;    ///< the switch behind the adapter
    QByteArrayList taken; ///< the commands it has received

protected:
    std::unique_ptr<QMainWindow> make_window() override;
    void write_command(const std::string& command) override;

private:
    QByteArray pick_another_channel();

    Switch_Model window_model;
};
