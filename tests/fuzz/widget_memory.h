// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayList>
#include <QWidget>

#include <functional>
#include <vector>

/// The state of a window's widgets, to be restored: far quicker than creating the window again.
class Widget_Memory {
public:
    explicit Widget_Memory(QWidget& window);

    /// Restores everything that replies, files and the program itself can change.
    void restore() const;

private:
    std::vector<std::function<void()>> restorers;
};

/// Everything that can be read from the widgets, one line each: the check that restore() is exact.
[[nodiscard]] QByteArrayList description_of(const QWidget& window);
