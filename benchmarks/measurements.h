// SPDX-License-Identifier: MIT

#pragma once

#include "benchmarks/row.h"

#include <QCoreApplication>

#include <stdexcept>

/// A measurement that could not be taken; the text says why.
class Measurement_Failed : public std::runtime_error {
public:
    explicit Measurement_Failed(const QString& why) : std::runtime_error(why.toStdString()) {}
};

/// Each benchmark returns its rows of the table. Each runs in a separate process.
Rows measure_start();
Rows measure_window();
Rows measure_memory();
Rows measure_idle();
Rows measure_terminal();
Rows measure_report_wait();
Rows measure_report_apply();
Rows measure_stall();
Rows measure_press();
Rows measure_settings();
Rows measure_adapters();
