// SPDX-License-Identifier: MIT

// Proves that findings are detected: a target with one defect of each kind, chosen by the first
// byte. `tools/fuzz --self-test` runs it.

#include "tests/fuzz/stated_ends.h"

#include <climits>
#include <cstdlib>
#include <memory>
#include <stdexcept>

namespace {

void overrun(std::size_t size) {
    const auto bytes = std::make_unique<volatile char[]>(size);
    bytes[size] = 1;
}

void overflow(int step) {
    volatile int number = INT_MAX;
    number = number + step;
}

Stated_End stated() { return {&typeid(std::out_of_range), "stated"}; }

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    if (size == 0) {
        return -1;
    }
    switch (data[0]) {
    case 'o':
        overrun(size);
        break;
    case 'i':
        overflow(static_cast<int>(size));
        break;
    case 't':
        ends_as_stated(stated(), [] { throw std::out_of_range("another text"); });
        break;
    case 'k':
        ends_as_stated(stated(), [] { throw std::length_error("stated"); });
        break;
    case 'm':
        ends_as_stated(stated(), [] {});
        break;
    case 'u':
        ends_as_stated(std::nullopt, [] { throw std::out_of_range("stated"); });
        break;
    case 'e':
        std::exit(1);
    default:
        // Without a defect: the expected exception, and none.
        ends_as_stated(stated(), [] { throw std::out_of_range("stated"); });
        ends_as_stated(std::nullopt, [] {});
    }
    return 0;
}
