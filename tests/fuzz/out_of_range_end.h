// SPDX-License-Identifier: MIT

#pragma once

#include "tests/fuzz/stated_ends.h"

#include <stdexcept>

/// Nothing, or the one exception that pure functions throw if a text is too short.
inline std::optional<Stated_End> out_of_range_if(bool holds, const char* text) {
    return holds ? std::optional(Stated_End{&typeid(std::out_of_range), text}) : std::nullopt;
}

inline constexpr const char* field_missing = "the text ends before the field begins";
