// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The network interface by which the system sends a broadcast, with its address, such as
/// "eth0 192.168.0.5"; why there is none, if so. Nothing is sent for that. For diagnostics:
/// adapters behind another interface do not hear the search.
[[nodiscard]] QString broadcast_interface();
