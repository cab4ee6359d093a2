// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QString>

/// The encodings of a simulated adapter's values.

/// Cut or padded with zero bytes to a field's size.
QByteArray filled_up(const QByteArray& text, qsizetype size);

QByteArray reversed(const QByteArray& bytes);

/// The four bytes of an address, first octet first.
QByteArray bytes_of(const QHostAddress& address);

/// The address from four bytes, last octet first.
QHostAddress address_from(const QByteArray& reversed_bytes);

/// Why a frame's size, length byte or checksum is wrong; empty if they are right.
QString frame_error(const QByteArray& frame, qsizetype size, int length_byte);
