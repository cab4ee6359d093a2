// SPDX-License-Identifier: MIT

#pragma once

// What tools/mutate builds into the product in addition to its faults. HALVERN_MUTANT is the number
// of the fault that is on; if HALVERN_MUTANT_TRACE names a file, the numbers of the reached faults
// are written there.

#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <string>
#include <unistd.h>
#include <utility>

inline bool halvern_mutant(int number) {
    static const int active = std::atoi(std::getenv("HALVERN_MUTANT") ?: "0");
    static const std::string trace = std::getenv("HALVERN_MUTANT_TRACE") ?: "";
    static bool seen[10000];
    if (!trace.empty() && !std::exchange(seen[number], true)) {
        const std::string line = std::to_string(number) + '\n';
        const int file = ::open(trace.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
        (void)!::write(file, line.data(), line.size());
        ::close(file);
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
