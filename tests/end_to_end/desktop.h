// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/program_run.h"
#include "tests/support/virtual_display.h"

#include <QPoint>
#include <QRect>
#include <QString>

/// A screen of the test's own with a window manager, and a mouse and a keyboard that work on it as
/// a person's do. Nothing of it is inside the programs that are shown there.
class Desktop {
public:
    /// @param screen_size width, height and depth.
    explicit Desktop(const QString& screen_size = "1600x1200x24");

    /// Whether the window manager manages; nothing else works before.
    [[nodiscard]] bool is_ready() const;

    /// What the window manager has complained about.
    QByteArray errors() { return window_manager.errors(); }

    [[nodiscard]] const QString& display() const { return screen.name(); }

    /// Waits for a visible window with just this title, until the window manager has it.
    /// @return its number, empty if it did not come.
    [[nodiscard]] QString find_window(const QString& title) const;

    /// Whether such a window can be seen right now.
    [[nodiscard]] bool shows_window(const QString& title) const;

    /// Where a window is, without its frame, as far as it is on the screen.
    [[nodiscard]] QRect visible_place_of(const QString& window) const;

    /// Clicks at a place in a window, counted from its upper left corner without the frame.
    [[nodiscard]] bool click(const QString& window, const QPoint& place) const;

    /// Presses keys such as "alt+F4" in a window, which is made the active one first.
    [[nodiscard]] bool press(const QString& window, const QString& keys) const;

private:
    [[nodiscard]] QMap<QString, int> numbers_from(const QStringList& arguments) const;
    [[nodiscard]] bool run_tool(const QStringList& arguments, QString* output = nullptr) const;

    Virtual_Display screen;
    Program_Run window_manager;
};
