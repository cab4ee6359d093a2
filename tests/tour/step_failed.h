// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <stdexcept>

/// What was found instead of what was expected. It ends the tour.
class Step_Failed : public std::runtime_error {
public:
    explicit Step_Failed(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};
