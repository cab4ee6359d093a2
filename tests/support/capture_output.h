// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <iostream>
#include <sstream>

/// Captures std::cout for its lifetime.
class Captured_Output {
public:
    Captured_Output() : earlier(std::cout.rdbuf(text.rdbuf())) {}
    ~Captured_Output() { std::cout.rdbuf(earlier); }
    Captured_Output(const Captured_Output&) = delete;
    Captured_Output& operator=(const Captured_Output&) = delete;

    QByteArray take() const { return QByteArray::fromStdString(text.str()); }

private:
    std::ostringstream text;
    std::streambuf* earlier;
};
