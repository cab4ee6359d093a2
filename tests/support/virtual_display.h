// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>

/// The test's own X server without a screen (Xvfb), on the first free display number. It ends with
/// this object.
class Virtual_Display {
public:
    /// Starts the server and waits until it can be used.
    /// @param screen width, height and depth.
    explicit Virtual_Display(const QString& screen = "1600x1200x24");
    ~Virtual_Display();

    Virtual_Display(const Virtual_Display&) = delete;
    Virtual_Display& operator=(const Virtual_Display&) = delete;

    /// Such as ":7"; empty if the server did not start.
    const QString& name() const { return display; }

private:
    QProcess server;
    QString display;
};
