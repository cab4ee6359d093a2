// SPDX-License-Identifier: MIT

#include "usr/dotted_shape.h"

#include <regex>

bool has_dotted_shape(const QString& text) {
    static const std::regex dotted(R"(^\d{1,3}\.\d{1,3}\.\d{1,3}\.\d{1,3}$)");
    return std::regex_match(text.toStdString(), dotted);
}
