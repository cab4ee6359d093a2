// SPDX-License-Identifier: MIT

#pragma once

/// Makes the QApplication of a fuzzer that has widgets, without a display. To be called first.
void start_application(int& argc, char** argv);
