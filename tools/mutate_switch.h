// SPDX-License-Identifier: MIT

#pragma once

// What tools/mutate builds into the product in addition to its faults. HALVERN_MUTANT is the number
// of the fault that is on. If HALVERN_MUTANT_TRACE names a file, each reached fault is marked at
// its place there. The file is mapped, because a test may limit the size of what its process
// writes.

#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <sys/mman.h>
#include <unistd.h>

inline char* halvern_mutant_marks() {
    constexpr std::size_t length = 10000;
    const char* trace = std::getenv("HALVERN_MUTANT_TRACE");
    const int file = trace ? ::open(trace, O_RDWR | O_CLOEXEC) : -1;
    void* marks = file < 0 ? MAP_FAILED : ::mmap(nullptr, length, PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    return marks == MAP_FAILED ? nullptr : static_cast<char*>(marks);
}

inline bool halvern_mutant(int number) {
    static const int active = std::atoi(std::getenv("HALVERN_MUTANT") ?: "0");
    static char* const marks = halvern_mutant_marks();
    if (marks) {
        marks[number] = 1;
    }
    return number == active;
}

/// "a < b" becomes "a < Halvern_Operator<7, std::less<>, std::greater<>>() < b": this works without
/// knowing where a begins and b ends.
template <int number, class Right_One, class Wrong_One>
struct Halvern_Operator {};

template <class Left, class Operator>
struct Halvern_Left {
    const Left& value;
};

#define HALVERN_OPERATOR(sign)                                                                     \
    template <class Left, int number, class R, class W>                                            \
    auto operator sign(const Left& left, Halvern_Operator<number, R, W>) {                         \
        return Halvern_Left<Left, Halvern_Operator<number, R, W>>{left};                           \
    }                                                                                              \
    template <class Left, int number, class R, class W, class Right>                               \
    bool operator sign(Halvern_Left<Left, Halvern_Operator<number, R, W>> left,                    \
                       const Right& right) {                                                       \
        return halvern_mutant(number) ? W{}(left.value, right) : R{}(left.value, right);           \
    }
HALVERN_OPERATOR(<)
HALVERN_OPERATOR(>)
HALVERN_OPERATOR(<=)
HALVERN_OPERATOR(>=)
HALVERN_OPERATOR(==)
HALVERN_OPERATOR(!=)
#undef HALVERN_OPERATOR
