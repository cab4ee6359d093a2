// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QSerialPort>
#include <QUdpSocket>

#include <algorithm>
#include <cstring>

/// A serial port or socket that counts as open and has no device: it records each write, and
/// returns what the fuzzer lets it receive.
template <class Device>
class Recording_Device : public Device {
public:
    explicit Recording_Device(QByteArrayList& kept_writes) : writes(kept_writes) {
        QIODevice::open(QIODevice::ReadWrite | QIODevice::Unbuffered);
    }
    // Not the device's own close(), because it was not opened by its own open().
    ~Recording_Device() override { QIODevice::close(); }

    void close() override { QIODevice::close(); }
    qint64 bytesAvailable() const override { return received.size(); }
    void receive(const QByteArray& bytes) { received += bytes; }

protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 size = std::min<qint64>(most, received.size());
        if (size > 0) {
            std::memcpy(data, received.constData(), static_cast<std::size_t>(size));
            received.remove(0, size);
        }
        return size;
    }
    qint64 writeData(const char* data, qint64 size) override {
        writes.append(QByteArray(data, size));
        return size;
    }

private:
    QByteArrayList& writes;
    QByteArray received;
};

using Recording_Port = Recording_Device<QSerialPort>;
using Recording_Socket = Recording_Device<QUdpSocket>;
