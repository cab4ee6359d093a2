// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The network interface through which the system sends a broadcast, with its address, such as
/// "eth0 192.168.0.5"; or the reason why there is none. Nothing is sent. For diagnostics: adapters
/// on another interface do not receive the search.
[[nodiscard]] QString broadcast_interface();
