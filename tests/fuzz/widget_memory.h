// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayList>
#include <QWidget>

#include <functional>
#include <vector>

/// What a window's widgets show, to be brought back: far quicker than making the window again.
class Widget_Memory {
public:
    explicit Widget_Memory(QWidget& window);

    /// Brings back everything that replies, files and the program itself can change.
    void restore() const;

private:
    std::vector<std::function<void()>> restorers;
};

/// Everything that can be read from the widgets, a line each: the proof that restore() is exact.
[[nodiscard]] QByteArrayList description_of(const QWidget& window);
