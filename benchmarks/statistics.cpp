// SPDX-License-Identifier: MIT

#include "benchmarks/statistics.h"

#include <algorithm>
#include <cstddef>
#include <ctime>

namespace {

template <typename Operation>
Samples pair_by_pair(const Samples& a, const Samples& b, Operation operation) {
    Samples results;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        results.push_back(operation(a[i], b[i]));
    }
    return results;
}

} // namespace

qint64 now_ns() {
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

double milliseconds_between(qint64 begin_ns, qint64 end_ns) {
    return static_cast<double>(end_ns - begin_ns) / 1e6;
}

double median(Samples samples) {
    const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

double largest(const Samples& samples) { return *std::ranges::max_element(samples); }

double smallest(const Samples& samples) { return *std::ranges::min_element(samples); }

double median_ratio(const Samples& a, const Samples& b) {
    return median(pair_by_pair(a, b, [](double x, double y) { return x / y; }));
}

double median_difference(const Samples& a, const Samples& b) {
    return median(pair_by_pair(a, b, [](double x, double y) { return x - y; }));
}
