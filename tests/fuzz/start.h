// SPDX-License-Identifier: MIT

#pragma once

/// Creates the QApplication of a fuzzer that has widgets, without a display. To be called first.
void start_application(int& argc, char** argv);
