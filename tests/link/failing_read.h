// SPDX-License-Identifier: MIT

#pragma once

/// While it lives, read() from one descriptor fails with EIO, as from a device that has broken
/// down. The program's own read() stands before the one of the C library, also for Qt.
class Failing_Read {
public:
    explicit Failing_Read(int descriptor);
    ~Failing_Read();
    Failing_Read(const Failing_Read&) = delete;
    Failing_Read& operator=(const Failing_Read&) = delete;

    /// How often it has failed.
    [[nodiscard]] int count() const;
};
