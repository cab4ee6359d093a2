// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/program_run.h"
#include "tests/support/virtual_display.h"

#include <QPoint>
#include <QRect>
#include <QString>

/// The test's own screen with a window manager, and a mouse and a keyboard that act as a user's do.
/// No part of it is inside the programs that are shown there.
class Desktop {
public:
    /// @param screen_size width, height and depth.
    explicit Desktop(const QString& screen_size = "1600x1200x24");

    /// Whether the window manager is ready; nothing else works before.
    [[nodiscard]] bool is_ready() const;

    /// The error messages of the window manager.
    QByteArray errors() { return window_manager.errors(); }

    [[nodiscard]] const QString& display() const { return screen.name(); }

    /// Waits until a window with exactly this title is visible and managed by the window manager.
    /// @return its number, empty if it did not appear.
    [[nodiscard]] QString find_window(const QString& title) const;

    /// Whether such a window is visible now.
    [[nodiscard]] bool shows_window(const QString& title) const;

    /// The part of a window, without its frame, that is on the screen.
    [[nodiscard]] QRect visible_place_of(const QString& window) const;

    /// Clicks at a position in a window, relative to its upper left corner without the frame.
    [[nodiscard]] bool click(const QString& window, const QPoint& place) const;

    /// Presses keys such as "alt+F4" in a window, after activating it.
    [[nodiscard]] bool press(const QString& window, const QString& keys) const;

private:
    [[nodiscard]] QMap<QString, int> numbers_from(const QStringList& arguments) const;
    [[nodiscard]] bool run_tool(const QStringList& arguments, QString* output = nullptr) const;

    Virtual_Display screen;
    Program_Run window_manager;
};
