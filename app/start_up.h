// SPDX-License-Identifier: MIT

#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>

class QMainWindow;

/// Makes the main window of a model ("Lite", "Plus", "Pro"), or nothing for any other text.
using Window_Factory = std::function<std::unique_ptr<QMainWindow>(const std::string& km_type)>;

/// Gives the application one light palette, so that texts without a colour of their own stay
/// readable on the forms' fixed light backgrounds under a dark desktop theme too.
void set_light_palette();

/// Sends everything straight to the network, whatever proxy the environment or the system names: an
/// adapter is on the local network, and a login in plain text is nobody else's business.
void refuse_proxies();

/// The Pro has a slot that names a button which no form has. Qt would print a line about it at
/// every start, on which nobody can act; QT_LOGGING_RULES="qt.core.*=true" brings it back.
void keep_start_quiet();

/// The run between the application object's birth and end: asks for the model, makes and shows its
/// window, runs the event loop, and deletes the window before the dialog.
///
/// @param construction_failure takes an exception that left the making of the window. The caller
///        throws it on once the application object is gone as well; no event loop runs then.
/// @return the exit status of the event loop; 0 at once if no model was chosen, 1 if the window
///         could not be made.
int run_tool(const Window_Factory& make_window, std::exception_ptr& construction_failure);
