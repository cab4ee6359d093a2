// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

class QMainWindow;

/// Makes the main window of a model ("Lite", "Plus", "Pro"), or nothing for any other text. It is
/// in windows/, which the program links: so no file of this folder includes one of that.
std::unique_ptr<QMainWindow> make_main_window(const std::string& km_type);
