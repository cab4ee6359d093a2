// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

class QMainWindow;

/// Makes the main window of a model ("Lite", "Plus", "Pro"), or nothing for any other text. The
/// definition is in windows/, so that app/ knows the windows by this function only.
std::unique_ptr<QMainWindow> make_main_window(const std::string& km_type);
