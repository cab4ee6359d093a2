// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

/// While it exists, every operator new of this size or more throws std::bad_alloc, as it does when
/// memory runs out. It replaces the operators of the whole program, so that a test which lists
/// failing_allocation.cpp among its sources reaches the code under test with it. Memory that is not
/// allocated with operator new, such as that of QString and QByteArray, is not affected; neither is
/// that of another library on Windows.
class Failing_Allocation {
public:
    explicit Failing_Allocation(std::size_t smallest_failing);
    ~Failing_Allocation();
    Failing_Allocation(const Failing_Allocation&) = delete;
    Failing_Allocation& operator=(const Failing_Allocation&) = delete;

    /// How many allocations have failed since this object was created.
    [[nodiscard]] int failed() const;
};
