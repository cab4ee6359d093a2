// SPDX-License-Identifier: MIT

#pragma once

/// A program linked with this file and with the wrapping option in CMakeLists.txt can have a UDP
/// socket that neither connects nor fails, which no network causes.
namespace stalled_connection {

/// The next QAbstractSocket::connectToHost() to an address stays pending for ever.
void stall_next();

} // namespace stalled_connection
