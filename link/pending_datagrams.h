// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <optional>

class QUdpSocket;

/// Takes everything that is pending on a socket, as one chunk in the order of arrival, each
/// datagram whole. A reported refusal (the peer's port was closed) is skipped and hides nothing
/// behind it. A flood ends at a bound far above what a receive buffer holds; what is left then
/// raises readyRead() again.
///
/// @return nothing if no datagram was pending; an empty chunk if only empty ones were.
std::optional<QByteArray> read_pending_datagrams(QUdpSocket& socket);
