// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <stdexcept>

/// What was seen instead of what should have been. It ends the tour.
class Step_Failed : public std::runtime_error {
public:
    explicit Step_Failed(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};
