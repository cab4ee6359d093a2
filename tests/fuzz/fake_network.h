// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHostAddress>

#include <functional>

/// The network of the fuzzers. In a program that links this file nothing leaves a UDP socket and no
/// socket gets a port: what is sent goes to an answerer, whose datagrams are then pending for the
/// sender.
namespace fake_network {

/// Every datagram comes from here.
inline const QHostAddress sender_address{"127.0.0.2"};
inline constexpr quint16 sender_port = 1901;

using Answerer = std::function<QByteArrayList(const QByteArray& frame)>;

/// Drops all pending datagrams and sets the answerer.
void start(const Answerer& answerer);

} // namespace fake_network
