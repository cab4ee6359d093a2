// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <vector>

/// Samples of one series, in the order in which they were taken.
using Samples = std::vector<double>;

/// The monotonic clock in nanoseconds: the one clock of all measurements, the same in every
/// process.
qint64 now_ns();

/// Milliseconds from one reading of the clock to another.
double milliseconds_between(qint64 begin_ns, qint64 end_ns);

/// The middle sample; of an even number the upper of the two. There must be one.
double median(Samples samples);

/// The largest and the smallest sample. There must be one.
double largest(const Samples& samples);
double smallest(const Samples& samples);

/// The median of a[i] / b[i]. Samples taken alternately see the same load of the machine, so each
/// is compared with its neighbour.
double median_ratio(const Samples& a, const Samples& b);

/// The median of a[i] - b[i].
double median_difference(const Samples& a, const Samples& b);
