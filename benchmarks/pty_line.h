// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// The serial line of a benchmark: a pseudo-terminal whose other end is read and written with plain
/// blocking calls, to be used from a thread other than the measured one.
class Pty_Line {
public:
    Pty_Line();
    ~Pty_Line();
    Pty_Line(const Pty_Line&) = delete;
    Pty_Line& operator=(const Pty_Line&) = delete;

    /// The name to list, such as "/dev/pts/7".
    [[nodiscard]] const QString& device_name() const { return name; }

    /// Sends bytes; waits while the line is full, which is after some kilobytes unread.
    void write(const QByteArray& bytes) const;

    /// Reads what the tool sends until this text has arrived, for at most ten seconds.
    /// @return whether it arrived.
    [[nodiscard]] bool read_up_to(const QByteArray& text) const;

    /// Discards what the tool has sent so far.
    void drop_input() const;

private:
    int master = -1;
    /// Kept open, so that the master survives the tool's closing and reopening of the slave.
    int slave = -1;
    QString name;
};
