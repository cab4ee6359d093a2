// SPDX-License-Identifier: MIT

#pragma once

class QSerialPort;

/// Whether the other end of a port's line is gone, according to the system: some versions of Qt
/// raise an error then, others do not.
/// @param port open.
[[nodiscard]] bool is_hung_up(const QSerialPort& port);
