// SPDX-License-Identifier: MIT

#pragma once

/// During its lifetime, read() from one descriptor fails with EIO, as with a defective device. The
/// program's own read() takes precedence over that of the C library, also for Qt.
class Failing_Read {
public:
    explicit Failing_Read(int descriptor);
    ~Failing_Read();
    Failing_Read(const Failing_Read&) = delete;
    Failing_Read& operator=(const Failing_Read&) = delete;

    /// How often it has failed.
    [[nodiscard]] int count() const;
};
