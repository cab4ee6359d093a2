// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>

#include <chrono>

/// What the tour uses outside of the program that it runs in: the display's input, the units'
/// console, and the tour's output. On Linux these are other processes and inherited streams. A
/// Windows program under Wine has no such streams and uses connections on the loopback.
namespace outside {

/// Sends mouse and keyboard events to the X server.
/// @throws Step_Failed if the server refuses them.
void xdotool(const QStringList& arguments);

/// The next bytes that the units print; empty if none arrive in time.
QByteArray units_output(std::chrono::milliseconds patience);

/// Writes a line to the units' console.
/// @throws Step_Failed if that can't be done.
void ask_units(const QByteArray& line);

/// Waits until the screen shows what the program has painted.
/// @throws Step_Failed if that does not come.
void await_painted();

/// Prints a line for the user who watches the tour.
void print(const QString& line);

/// Closes the connections. To be called last, by the thread that has used them.
void leave();

} // namespace outside
