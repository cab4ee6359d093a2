// SPDX-License-Identifier: MIT

#pragma once

#include "sim/simulated_switch.h"
#include "tests/support/virtual_time.h"

#include <QByteArrayList>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QMainWindow>
#include <QPushButton>
#include <QStringList>
#include <QTextEdit>

#include <memory>
#include <string>

/// A main window and the simulated switch at the other end of its first listed port, whatever the
/// model. Time is virtual as long as it exists.
class Window_Fixture {
    const Virtual_Time time;

public:
    /// At first there is only the switch, so that its state and its faults can be set.
    explicit Window_Fixture(Switch_Model model);
    /// Deletes the window and clears the list of ports.
    virtual ~Window_Fixture();

    Window_Fixture(const Window_Fixture&) = delete;
    Window_Fixture& operator=(const Window_Fixture&) = delete;

    /// Lists the ports, creates the window and shows it. The switch has not processed events yet.
    void open();

    /// As open(), and waits until the switch has answered.
    [[nodiscard]] bool open_connected();

    /// As open(), and waits until the first report has filled the pages. Then clears what the
    /// switch has received.
    /// @param text what arrives before the first report. Newer versions of Qt drop what arrived
    ///             before they opened the line, so it is sent after the opening.
    [[nodiscard]] bool open_filled(const QByteArray& text = {});

    /// Deletes the window, as the end of the program does.
    void close() { main_window.reset(); }

    QMainWindow& window() const { return *main_window; }

    // What the window shows.
    [[nodiscard]] bool is_connected() const; ///< the indicator is green
    /// The custom names of a report are in the resolution boxes. A refresh removes them at once and
    /// the report inserts them again.
    [[nodiscard]] bool is_filled() const;
    [[nodiscard]] bool wait_connected() const;
    [[nodiscard]] bool wait_filled() const;
    [[nodiscard]] QString terminal_text() const;

    // The window's widgets, by object name.
    QPushButton& button(const QString& name) const;
    QComboBox& combo(const QString& name) const;
    QLineEdit& line_edit(const QString& name) const;
    QLabel& label(const QString& name) const;
    QTextEdit& terminal() const;
    /// The resolution box of channel 1 to 4.
    QComboBox& resolution(int channel) const;

    /// The grid cells, 1 to 16, of channel 1 to 4; 0 for one that is not on the grid.
    [[nodiscard]] QList<int> layout_positions() const;

    /// Runs a slot of the window by its name.
    [[nodiscard]] bool run_slot(const char* name) const;

    /// Everything the switch has received since its record was last cleared, complete up to this
    /// call: a marker command follows on the same line, and its arrival is awaited. The record is
    /// cleared. The switch answers the marker with "Not understood.".
    QByteArrayList commands();

    /// Sends text unasked and waits until the terminal shows it.
    [[nodiscard]] bool say(const QByteArray& text);

    Simulated_Switch device;
    /// Device names to list, the switch's own to begin with.
    QStringList ports;

protected:
    virtual std::unique_ptr<QMainWindow> make_window() = 0;
    /// Sends a command as the window's own code does.
    virtual void write_command(const std::string& command) = 0;

private:
    std::unique_ptr<QMainWindow> main_window;
};
