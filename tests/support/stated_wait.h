// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <chrono>

/// Nothing if a wait measured in virtual time has the expected length, otherwise its length. The
/// clock advances a little with each look at the events, and some event loops round up to
/// milliseconds.
inline QByteArray wrong_wait(std::chrono::nanoseconds measured, std::chrono::milliseconds stated) {
    constexpr std::chrono::milliseconds early{1};
    constexpr std::chrono::milliseconds late{2};
    if (measured >= stated - early && measured <= stated + late) {
        return {};
    }
    const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(measured);
    return QByteArray::number(static_cast<qlonglong>(whole.count())) + " ms";
}
