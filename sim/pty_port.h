// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

/// A pseudo-terminal in place of one serial line. The tool opens the slave end by its name; this
/// object is the device at the other end. Event driven, in the thread that created it.
class Pty_Port : public QObject {
    Q_OBJECT

public:
    /// Opens the pair in raw mode: no echo, no line editing. The process ends with a message if the
    /// system has no pseudo-terminal left.
    explicit Pty_Port(QObject* parent = nullptr);
    ~Pty_Port() override;

    Pty_Port(const Pty_Port&) = delete;
    Pty_Port& operator=(const Pty_Port&) = delete;

    /// The slave's name, such as "/dev/pts/7". It stays the same after close().
    const QString& device_name() const { return slave_name; }

    /// Sends bytes to the process that has the slave open. What the line does not accept at once
    /// follows later; without a reader the kernel buffers a few kilobytes and this object the rest.
    /// Dropped after close().
    void write(const QByteArray& bytes);

    /// Whether everything written has been passed to the line.
    bool all_written() const { return unwritten.isEmpty(); }

    /// Disconnects the device for good, like an unplugged cable: the other end reads errors from
    /// now on.
    void close();

    bool is_open() const { return master >= 0; }

signals:
    /// Bytes have arrived, in the order in which they were written, none twice.
    void received(const QByteArray& bytes);

private:
    void read_incoming();
    void write_pending();

    int master = -1;
    /// Kept open, so that the master survives the tool's closing and reopening of the slave.
    int slave = -1;
    QString slave_name;
    QByteArray unwritten;
    QSocketNotifier* read_notifier = nullptr;
    QSocketNotifier* write_notifier = nullptr;
};
