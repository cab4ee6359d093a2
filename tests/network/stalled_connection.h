// SPDX-License-Identifier: MIT

#pragma once

/// A program that is linked with this file, and with the wrapping option in CMakeLists.txt, can
/// have a UDP socket that neither connects nor fails, which no network causes.
namespace stalled_connection {

/// The coming QAbstractSocket::connectToHost() for an address stays on its way for ever.
void stall_next();

} // namespace stalled_connection
